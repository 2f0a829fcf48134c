#include "SpecialKey.h"

#include "KeyCode.h"

#include <QCoreApplication>

#include <algorithm>
#include <iterator>

namespace tintwick {

namespace {

struct Entry
{
    SpecialKey key;
    int keyCode;
    /// Null when the word stands for it.
    const char16_t* sign;
    const char* word;
    Qt::Key menuKey;
};

// In the order of the enumeration. U+20E3 is the combining keycap.
constexpr Entry entries[] = {
    {SpecialKey::Return, keycode::returnKey, u"\u21A9", "Return", Qt::Key_Return},
    {SpecialKey::Delete, keycode::deleteKey, u"\u232B", "Backspace", Qt::Key_Backspace},
    {SpecialKey::DeleteForward, keycode::deleteForward, u"\u2326", "Delete", Qt::Key_Delete},
    {SpecialKey::End, keycode::end, u"\u2198", "End", Qt::Key_End},
    {SpecialKey::Escape, keycode::escape, u"\u238B", "Escape", Qt::Key_Escape},
    {SpecialKey::Insert, keycode::help, u"Ins", "Insert", Qt::Key_Insert},
    {SpecialKey::Home, keycode::home, u"\u2196", "Home", Qt::Key_Home},
    {SpecialKey::Space, keycode::space, nullptr, "Space", Qt::Key_Space},
    {SpecialKey::Tab, keycode::tab, u"\u21E5", "Tab", Qt::Key_Tab},
    {SpecialKey::PageUp, keycode::pageUp, u"\u21DE", "Page Up", Qt::Key_PageUp},
    {SpecialKey::PageDown, keycode::pageDown, u"\u21DF", "Page Down", Qt::Key_PageDown},
    {SpecialKey::UpArrow, keycode::upArrow, u"\u2191", "Up", Qt::Key_Up},
    {SpecialKey::RightArrow, keycode::rightArrow, u"\u2192", "Right", Qt::Key_Right},
    {SpecialKey::DownArrow, keycode::downArrow, u"\u2193", "Down", Qt::Key_Down},
    {SpecialKey::LeftArrow, keycode::leftArrow, u"\u2190", "Left", Qt::Key_Left},
    {SpecialKey::F1, keycode::f1, nullptr, "F1", Qt::Key_F1},
    {SpecialKey::F2, keycode::f2, nullptr, "F2", Qt::Key_F2},
    {SpecialKey::F3, keycode::f3, nullptr, "F3", Qt::Key_F3},
    {SpecialKey::F4, keycode::f4, nullptr, "F4", Qt::Key_F4},
    {SpecialKey::F5, keycode::f5, nullptr, "F5", Qt::Key_F5},
    {SpecialKey::F6, keycode::f6, nullptr, "F6", Qt::Key_F6},
    {SpecialKey::F7, keycode::f7, nullptr, "F7", Qt::Key_F7},
    {SpecialKey::F8, keycode::f8, nullptr, "F8", Qt::Key_F8},
    {SpecialKey::F9, keycode::f9, nullptr, "F9", Qt::Key_F9},
    {SpecialKey::F10, keycode::f10, nullptr, "F10", Qt::Key_F10},
    {SpecialKey::F11, keycode::f11, nullptr, "F11", Qt::Key_F11},
    {SpecialKey::F12, keycode::f12, nullptr, "F12", Qt::Key_F12},
    {SpecialKey::F13, keycode::f13, nullptr, "F13", Qt::Key_F13},
    {SpecialKey::F14, keycode::f14, nullptr, "F14", Qt::Key_F14},
    {SpecialKey::F15, keycode::f15, nullptr, "F15", Qt::Key_F15},
    {SpecialKey::F16, keycode::f16, nullptr, "F16", Qt::Key_F16},
    {SpecialKey::F17, keycode::f17, nullptr, "F17", Qt::Key_F17},
    {SpecialKey::F18, keycode::f18, nullptr, "F18", Qt::Key_F18},
    {SpecialKey::F19, keycode::f19, nullptr, "F19", Qt::Key_F19},
    {SpecialKey::F20, keycode::f20, nullptr, "F20", Qt::Key_F20},
    {SpecialKey::F21, keycode::f21, nullptr, "F21", Qt::Key_F21},
    {SpecialKey::F22, keycode::f22, nullptr, "F22", Qt::Key_F22},
    {SpecialKey::F23, keycode::f23, nullptr, "F23", Qt::Key_F23},
    {SpecialKey::F24, keycode::f24, nullptr, "F24", Qt::Key_F24},
    {SpecialKey::Keypad0, keycode::keypad0, u"0\u20E3", "Keypad 0", Qt::Key_0},
    {SpecialKey::Keypad1, keycode::keypad1, u"1\u20E3", "Keypad 1", Qt::Key_1},
    {SpecialKey::Keypad2, keycode::keypad2, u"2\u20E3", "Keypad 2", Qt::Key_2},
    {SpecialKey::Keypad3, keycode::keypad3, u"3\u20E3", "Keypad 3", Qt::Key_3},
    {SpecialKey::Keypad4, keycode::keypad4, u"4\u20E3", "Keypad 4", Qt::Key_4},
    {SpecialKey::Keypad5, keycode::keypad5, u"5\u20E3", "Keypad 5", Qt::Key_5},
    {SpecialKey::Keypad6, keycode::keypad6, u"6\u20E3", "Keypad 6", Qt::Key_6},
    {SpecialKey::Keypad7, keycode::keypad7, u"7\u20E3", "Keypad 7", Qt::Key_7},
    {SpecialKey::Keypad8, keycode::keypad8, u"8\u20E3", "Keypad 8", Qt::Key_8},
    {SpecialKey::Keypad9, keycode::keypad9, u"9\u20E3", "Keypad 9", Qt::Key_9},
    {SpecialKey::KeypadClear, keycode::keypadClear, u"\u2612\u20E3", "Num Lock", Qt::Key_Clear},
    {SpecialKey::KeypadDecimal, keycode::keypadDecimal, u".\u20E3", "Keypad .", Qt::Key_Period},
    {SpecialKey::KeypadDivide, keycode::keypadDivide, u"/\u20E3", "Keypad /", Qt::Key_Slash},
    {SpecialKey::KeypadEnter, keycode::keypadEnter, u"\u21A9\u20E3", "Keypad Enter", Qt::Key_Enter},
    {SpecialKey::KeypadEquals, keycode::keypadEquals, u"=\u20E3", "Keypad =", Qt::Key_Equal},
    {SpecialKey::KeypadMinus, keycode::keypadMinus, u"-\u20E3", "Keypad -", Qt::Key_Minus},
    {SpecialKey::KeypadMultiply, keycode::keypadMultiply, u"*\u20E3", "Keypad *", Qt::Key_Asterisk},
    {SpecialKey::KeypadPlus, keycode::keypadPlus, u"+\u20E3", "Keypad +", Qt::Key_Plus},
    {SpecialKey::KeypadComma, keycode::jisKeypadComma, u",\u20E3", "Keypad ,", Qt::Key_Comma},
    {SpecialKey::CapsLock, keycode::capsLock, u"\u21EA", "Caps Lock", Qt::Key_CapsLock},
    {SpecialKey::Print, keycode::print, u"PrtSc", "Print Screen", Qt::Key_Print},
    {SpecialKey::Pause, keycode::pause, nullptr, "Pause", Qt::Key_Pause},
    {SpecialKey::Menu, keycode::menu, nullptr, "Menu", Qt::Key_Menu},
    {SpecialKey::Mute, keycode::mute, nullptr, "Mute", Qt::Key_VolumeMute},
    {SpecialKey::VolumeDown, keycode::volumeDown, nullptr, "Volume Down", Qt::Key_VolumeDown},
    {SpecialKey::VolumeUp, keycode::volumeUp, nullptr, "Volume Up", Qt::Key_VolumeUp},
    {SpecialKey::PlayPause, keycode::playPause, nullptr, "Play/Pause", Qt::Key_MediaTogglePlayPause},
    {SpecialKey::Play, keycode::play, nullptr, "Play", Qt::Key_MediaPlay},
    {SpecialKey::Stop, keycode::stop, nullptr, "Stop", Qt::Key_MediaStop},
    {SpecialKey::NextTrack, keycode::nextTrack, nullptr, "Next Track", Qt::Key_MediaNext},
    {SpecialKey::PreviousTrack, keycode::previousTrack, nullptr, "Previous Track", Qt::Key_MediaPrevious},
    {SpecialKey::Record, keycode::record, nullptr, "Record", Qt::Key_MediaRecord},
    {SpecialKey::Rewind, keycode::rewind, nullptr, "Rewind", Qt::Key_AudioRewind},
    {SpecialKey::FastForward, keycode::fastForward, nullptr, "Fast Forward", Qt::Key_AudioForward},
    {SpecialKey::Eject, keycode::eject, nullptr, "Eject", Qt::Key_Eject},
    {SpecialKey::Media, keycode::media, nullptr, "Media", Qt::Key_LaunchMedia},
    {SpecialKey::BrightnessDown, keycode::brightnessDown, nullptr, "Brightness Down",
     Qt::Key_MonBrightnessDown},
    {SpecialKey::BrightnessUp, keycode::brightnessUp, nullptr, "Brightness Up", Qt::Key_MonBrightnessUp},
    {SpecialKey::Display, keycode::display, nullptr, "Display", Qt::Key_Display},
    {SpecialKey::HelpKey, keycode::helpKey, nullptr, "Help", Qt::Key_Help},
    {SpecialKey::Calculator, keycode::calculator, nullptr, "Calculator", Qt::Key_Calculator},
    {SpecialKey::Files, keycode::files, nullptr, "Files", Qt::Key_Explorer},
    {SpecialKey::Computer, keycode::computer, nullptr, "Computer", Qt::Key_Launch0},
    {SpecialKey::Tools, keycode::tools, nullptr, "Tools", Qt::Key_Tools},
    {SpecialKey::WebBrowser, keycode::webBrowser, nullptr, "Web Browser", Qt::Key_WWW},
    {SpecialKey::HomePage, keycode::homePage, nullptr, "Home Page", Qt::Key_HomePage},
    {SpecialKey::Mail, keycode::mail, nullptr, "Mail", Qt::Key_LaunchMail},
    {SpecialKey::Search, keycode::search, nullptr, "Search", Qt::Key_Search},
    {SpecialKey::Bookmarks, keycode::bookmarks, nullptr, "Bookmarks", Qt::Key_Favorites},
    {SpecialKey::Back, keycode::back, nullptr, "Back", Qt::Key_Back},
    {SpecialKey::Forward, keycode::forward, nullptr, "Forward", Qt::Key_Forward},
    {SpecialKey::Refresh, keycode::refresh, nullptr, "Refresh", Qt::Key_Refresh},
};

const Entry& entryOf(SpecialKey key)
{
    return entries[static_cast<std::size_t>(key)];
}

} // namespace

std::optional<SpecialKey> specialKeyForKeyCode(int keyCode)
{
    const auto* found = std::ranges::find(entries, keyCode, &Entry::keyCode);
    return found != std::end(entries) ? std::optional(found->key) : std::nullopt;
}

QString signOf(SpecialKey key)
{
    const char16_t* sign = entryOf(key).sign;
    return sign ? QString::fromUtf16(sign) : wordOf(key);
}

QString wordOf(SpecialKey key)
{
    return QCoreApplication::translate("SpecialKey", entryOf(key).word);
}

Qt::Key menuKey(SpecialKey key)
{
    return entryOf(key).menuKey;
}

} // namespace tintwick
