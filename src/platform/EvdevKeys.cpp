#include "EvdevKeys.h"

#include "KeyCode.h"

#include <algorithm>
#include <iterator>

#include <linux/input-event-codes.h>

namespace tintwick {

namespace {

struct Position
{
    int keyCode;
    int evdev;
};

constexpr Position positions[] = {
    {keycode::a, KEY_A},
    {keycode::b, KEY_B},
    {keycode::c, KEY_C},
    {keycode::d, KEY_D},
    {keycode::e, KEY_E},
    {keycode::f, KEY_F},
    {keycode::g, KEY_G},
    {keycode::h, KEY_H},
    {keycode::i, KEY_I},
    {keycode::j, KEY_J},
    {keycode::k, KEY_K},
    {keycode::l, KEY_L},
    {keycode::m, KEY_M},
    {keycode::n, KEY_N},
    {keycode::o, KEY_O},
    {keycode::p, KEY_P},
    {keycode::q, KEY_Q},
    {keycode::r, KEY_R},
    {keycode::s, KEY_S},
    {keycode::t, KEY_T},
    {keycode::u, KEY_U},
    {keycode::v, KEY_V},
    {keycode::w, KEY_W},
    {keycode::x, KEY_X},
    {keycode::y, KEY_Y},
    {keycode::z, KEY_Z},

    {keycode::zero, KEY_0},
    {keycode::one, KEY_1},
    {keycode::two, KEY_2},
    {keycode::three, KEY_3},
    {keycode::four, KEY_4},
    {keycode::five, KEY_5},
    {keycode::six, KEY_6},
    {keycode::seven, KEY_7},
    {keycode::eight, KEY_8},
    {keycode::nine, KEY_9},

    // The key left of 1, on ISO keyboards too. Their additional key is beside the left Shift.
    {keycode::backtick, KEY_GRAVE},
    {keycode::isoSection, KEY_102ND},
    {keycode::jisYen, KEY_YEN},
    {keycode::jisUnderscore, KEY_RO},
    {keycode::minus, KEY_MINUS},
    {keycode::equal, KEY_EQUAL},
    {keycode::leftBracket, KEY_LEFTBRACE},
    {keycode::rightBracket, KEY_RIGHTBRACE},
    // The kernel gives the ISO key left of Return the code of the ANSI key above Return.
    {keycode::backslash, KEY_BACKSLASH},
    {keycode::semicolon, KEY_SEMICOLON},
    {keycode::quote, KEY_APOSTROPHE},
    {keycode::comma, KEY_COMMA},
    {keycode::period, KEY_DOT},
    {keycode::slash, KEY_SLASH},

    {keycode::returnKey, KEY_ENTER},
    {keycode::tab, KEY_TAB},
    {keycode::space, KEY_SPACE},
    {keycode::deleteKey, KEY_BACKSPACE},
    {keycode::escape, KEY_ESC},
    {keycode::deleteForward, KEY_DELETE},
    // Help and Insert are two names of the position above Delete. A keyboard that prints "Help" there sends the USB usage
    // of Insert. KEY_HELP of the kernel is a media key.
    {keycode::help, KEY_INSERT},
    {keycode::home, KEY_HOME},
    {keycode::end, KEY_END},
    {keycode::pageUp, KEY_PAGEUP},
    {keycode::pageDown, KEY_PAGEDOWN},
    {keycode::leftArrow, KEY_LEFT},
    {keycode::rightArrow, KEY_RIGHT},
    {keycode::downArrow, KEY_DOWN},
    {keycode::upArrow, KEY_UP},

    {keycode::capsLock, KEY_CAPSLOCK},
    {keycode::shift, KEY_LEFTSHIFT},
    {keycode::rightShift, KEY_RIGHTSHIFT},
    {keycode::control, KEY_LEFTCTRL},
    {keycode::rightControl, KEY_RIGHTCTRL},
    {keycode::alt, KEY_LEFTALT},
    {keycode::rightAlt, KEY_RIGHTALT},
    {keycode::super, KEY_LEFTMETA},
    {keycode::rightSuper, KEY_RIGHTMETA},
    // Most laptops handle this key in firmware. Its evdev code is larger than an X keycode can be.
    {keycode::function, KEY_FN},

    {keycode::mute, KEY_MUTE},
    {keycode::volumeUp, KEY_VOLUMEUP},
    {keycode::volumeDown, KEY_VOLUMEDOWN},

    {keycode::f1, KEY_F1},
    {keycode::f2, KEY_F2},
    {keycode::f3, KEY_F3},
    {keycode::f4, KEY_F4},
    {keycode::f5, KEY_F5},
    {keycode::f6, KEY_F6},
    {keycode::f7, KEY_F7},
    {keycode::f8, KEY_F8},
    {keycode::f9, KEY_F9},
    {keycode::f10, KEY_F10},
    {keycode::f11, KEY_F11},
    {keycode::f12, KEY_F12},
    // Some keyboards have F13 to F15 in place of Print Screen, Scroll Lock and Pause. Those three have their own codes.
    {keycode::f13, KEY_F13},
    {keycode::f14, KEY_F14},
    {keycode::f15, KEY_F15},
    {keycode::f16, KEY_F16},
    {keycode::f17, KEY_F17},
    {keycode::f18, KEY_F18},
    {keycode::f19, KEY_F19},
    {keycode::f20, KEY_F20},

    {keycode::keypad0, KEY_KP0},
    {keycode::keypad1, KEY_KP1},
    {keycode::keypad2, KEY_KP2},
    {keycode::keypad3, KEY_KP3},
    {keycode::keypad4, KEY_KP4},
    {keycode::keypad5, KEY_KP5},
    {keycode::keypad6, KEY_KP6},
    {keycode::keypad7, KEY_KP7},
    {keycode::keypad8, KEY_KP8},
    {keycode::keypad9, KEY_KP9},
    // USB has one usage for Num Lock and Clear of the keypad. The kernel reports it as Num Lock.
    {keycode::keypadClear, KEY_NUMLOCK},
    {keycode::keypadDecimal, KEY_KPDOT},
    {keycode::keypadMultiply, KEY_KPASTERISK},
    {keycode::keypadPlus, KEY_KPPLUS},
    {keycode::keypadDivide, KEY_KPSLASH},
    {keycode::keypadEnter, KEY_KPENTER},
    {keycode::keypadMinus, KEY_KPMINUS},
    {keycode::keypadEquals, KEY_KPEQUAL},
    {keycode::jisKeypadComma, KEY_KPCOMMA},

    {keycode::print, KEY_SYSRQ},
    {keycode::pause, KEY_PAUSE},
    {keycode::menu, KEY_COMPOSE},
    {keycode::f21, KEY_F21},
    {keycode::f22, KEY_F22},
    {keycode::f23, KEY_F23},
    {keycode::f24, KEY_F24},

    {keycode::helpKey, KEY_HELP},
    {keycode::calculator, KEY_CALC},
    {keycode::files, KEY_FILE},
    {keycode::webBrowser, KEY_WWW},
    {keycode::mail, KEY_MAIL},
    {keycode::bookmarks, KEY_BOOKMARKS},
    {keycode::computer, KEY_COMPUTER},
    {keycode::back, KEY_BACK},
    {keycode::forward, KEY_FORWARD},
    {keycode::eject, KEY_EJECTCD},
    {keycode::nextTrack, KEY_NEXTSONG},
    {keycode::playPause, KEY_PLAYPAUSE},
    {keycode::previousTrack, KEY_PREVIOUSSONG},
    {keycode::stop, KEY_STOPCD},
    {keycode::record, KEY_RECORD},
    {keycode::rewind, KEY_REWIND},
    {keycode::tools, KEY_CONFIG},
    {keycode::homePage, KEY_HOMEPAGE},
    {keycode::refresh, KEY_REFRESH},
    {keycode::play, KEY_PLAY},
    {keycode::fastForward, KEY_FASTFORWARD},
    {keycode::search, KEY_SEARCH},
    {keycode::brightnessDown, KEY_BRIGHTNESSDOWN},
    {keycode::brightnessUp, KEY_BRIGHTNESSUP},
    {keycode::media, KEY_MEDIA},
    {keycode::display, KEY_SWITCHVIDEOMODE},
};

} // namespace

std::optional<int> evdevForKeyCode(int keyCode)
{
    const auto* found = std::ranges::find(positions, keyCode, &Position::keyCode);
    return found != std::end(positions) ? std::optional(found->evdev) : std::nullopt;
}

std::optional<int> keyCodeForEvdev(int evdev)
{
    const auto* found = std::ranges::find(positions, evdev, &Position::evdev);
    return found != std::end(positions) ? std::optional(found->keyCode) : std::nullopt;
}

} // namespace tintwick
