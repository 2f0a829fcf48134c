#pragma once

#include <QString>
#include <Qt>

#include <cstdint>
#include <optional>

namespace tintwick {

/// Keys that are shown as a symbol or a word instead of the character they type.
enum class SpecialKey : std::uint8_t {
    Return,
    Delete,
    DeleteForward,
    End,
    Escape,
    Insert,
    Home,
    Space,
    Tab,
    PageUp,
    PageDown,
    UpArrow,
    RightArrow,
    DownArrow,
    LeftArrow,
    F1,
    F2,
    F3,
    F4,
    F5,
    F6,
    F7,
    F8,
    F9,
    F10,
    F11,
    F12,
    F13,
    F14,
    F15,
    F16,
    F17,
    F18,
    F19,
    F20,
    F21,
    F22,
    F23,
    F24,
    Keypad0,
    Keypad1,
    Keypad2,
    Keypad3,
    Keypad4,
    Keypad5,
    Keypad6,
    Keypad7,
    Keypad8,
    Keypad9,
    KeypadClear,
    KeypadDecimal,
    KeypadDivide,
    KeypadEnter,
    KeypadEquals,
    KeypadMinus,
    KeypadMultiply,
    KeypadPlus,
    KeypadComma,
    CapsLock,
    Print,
    Pause,
    Menu,
    Mute,
    VolumeDown,
    VolumeUp,
    PlayPause,
    Play,
    Stop,
    NextTrack,
    PreviousTrack,
    Record,
    Rewind,
    FastForward,
    Eject,
    Media,
    BrightnessDown,
    BrightnessUp,
    Display,
    HelpKey,
    Calculator,
    Files,
    Computer,
    Tools,
    WebBrowser,
    HomePage,
    Mail,
    Search,
    Bookmarks,
    Back,
    Forward,
    Refresh,
};

/// None when the key is shown by its character. Key codes are those of KeyCode.h.
[[nodiscard]] std::optional<SpecialKey> specialKeyForKeyCode(int keyCode);

/// The sign of the key, for example "⎋"; its word when it has no sign, for example "F5".
[[nodiscard]] QString signOf(SpecialKey key);
/// The name of the key, for example "Escape".
[[nodiscard]] QString wordOf(SpecialKey key);

/// The key of a menu shortcut that this key triggers. A keypad key triggers the shortcut of its digit or sign.
[[nodiscard]] Qt::Key menuKey(SpecialKey key);

} // namespace tintwick
