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
    const char16_t* display;
    Qt::Key menuKey;
};

// In the order of the enumeration. U+20E3 is the combining keycap, U+20DD the combining circle.
constexpr Entry entries[] = {
    {SpecialKey::Return, keycode::returnKey, u"\u21A9", Qt::Key_Return},
    {SpecialKey::Delete, keycode::deleteKey, u"\u232B", Qt::Key_Backspace},
    {SpecialKey::DeleteForward, keycode::deleteForward, u"\u2326", Qt::Key_Delete},
    {SpecialKey::End, keycode::end, u"\u2198", Qt::Key_End},
    {SpecialKey::Escape, keycode::escape, u"\u238B", Qt::Key_Escape},
    {SpecialKey::Help, keycode::help, u"?\u20DD", Qt::Key_Help},
    {SpecialKey::Home, keycode::home, u"\u2196", Qt::Key_Home},
    {SpecialKey::Space, keycode::space, nullptr, Qt::Key_Space},
    {SpecialKey::Tab, keycode::tab, u"\u21E5", Qt::Key_Tab},
    {SpecialKey::PageUp, keycode::pageUp, u"\u21DE", Qt::Key_PageUp},
    {SpecialKey::PageDown, keycode::pageDown, u"\u21DF", Qt::Key_PageDown},
    {SpecialKey::UpArrow, keycode::upArrow, u"\u2191", Qt::Key_Up},
    {SpecialKey::RightArrow, keycode::rightArrow, u"\u2192", Qt::Key_Right},
    {SpecialKey::DownArrow, keycode::downArrow, u"\u2193", Qt::Key_Down},
    {SpecialKey::LeftArrow, keycode::leftArrow, u"\u2190", Qt::Key_Left},
    {SpecialKey::F1, keycode::f1, u"F1", Qt::Key_F1},
    {SpecialKey::F2, keycode::f2, u"F2", Qt::Key_F2},
    {SpecialKey::F3, keycode::f3, u"F3", Qt::Key_F3},
    {SpecialKey::F4, keycode::f4, u"F4", Qt::Key_F4},
    {SpecialKey::F5, keycode::f5, u"F5", Qt::Key_F5},
    {SpecialKey::F6, keycode::f6, u"F6", Qt::Key_F6},
    {SpecialKey::F7, keycode::f7, u"F7", Qt::Key_F7},
    {SpecialKey::F8, keycode::f8, u"F8", Qt::Key_F8},
    {SpecialKey::F9, keycode::f9, u"F9", Qt::Key_F9},
    {SpecialKey::F10, keycode::f10, u"F10", Qt::Key_F10},
    {SpecialKey::F11, keycode::f11, u"F11", Qt::Key_F11},
    {SpecialKey::F12, keycode::f12, u"F12", Qt::Key_F12},
    {SpecialKey::F13, keycode::f13, u"F13", Qt::Key_F13},
    {SpecialKey::F14, keycode::f14, u"F14", Qt::Key_F14},
    {SpecialKey::F15, keycode::f15, u"F15", Qt::Key_F15},
    {SpecialKey::F16, keycode::f16, u"F16", Qt::Key_F16},
    {SpecialKey::F17, keycode::f17, u"F17", Qt::Key_F17},
    {SpecialKey::F18, keycode::f18, u"F18", Qt::Key_F18},
    {SpecialKey::F19, keycode::f19, u"F19", Qt::Key_F19},
    {SpecialKey::F20, keycode::f20, u"F20", Qt::Key_F20},
    {SpecialKey::Keypad0, keycode::keypad0, u"0\u20E3", Qt::Key_0},
    {SpecialKey::Keypad1, keycode::keypad1, u"1\u20E3", Qt::Key_1},
    {SpecialKey::Keypad2, keycode::keypad2, u"2\u20E3", Qt::Key_2},
    {SpecialKey::Keypad3, keycode::keypad3, u"3\u20E3", Qt::Key_3},
    {SpecialKey::Keypad4, keycode::keypad4, u"4\u20E3", Qt::Key_4},
    {SpecialKey::Keypad5, keycode::keypad5, u"5\u20E3", Qt::Key_5},
    {SpecialKey::Keypad6, keycode::keypad6, u"6\u20E3", Qt::Key_6},
    {SpecialKey::Keypad7, keycode::keypad7, u"7\u20E3", Qt::Key_7},
    {SpecialKey::Keypad8, keycode::keypad8, u"8\u20E3", Qt::Key_8},
    {SpecialKey::Keypad9, keycode::keypad9, u"9\u20E3", Qt::Key_9},
    {SpecialKey::KeypadClear, keycode::keypadClear, u"\u2612\u20E3", Qt::Key_Clear},
    {SpecialKey::KeypadDecimal, keycode::keypadDecimal, u".\u20E3", Qt::Key_Period},
    {SpecialKey::KeypadDivide, keycode::keypadDivide, u"/\u20E3", Qt::Key_Slash},
    {SpecialKey::KeypadEnter, keycode::keypadEnter, u"\u21A9\u20E3", Qt::Key_Enter},
    {SpecialKey::KeypadEquals, keycode::keypadEquals, u"=\u20E3", Qt::Key_Equal},
    {SpecialKey::KeypadMinus, keycode::keypadMinus, u"-\u20E3", Qt::Key_Minus},
    {SpecialKey::KeypadMultiply, keycode::keypadMultiply, u"*\u20E3", Qt::Key_Asterisk},
    {SpecialKey::KeypadPlus, keycode::keypadPlus, u"+\u20E3", Qt::Key_Plus},
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

QString displayText(SpecialKey key)
{
    if (key == SpecialKey::Space) {
        return QCoreApplication::translate("SpecialKey", "Space");
    }
    return QString::fromUtf16(entryOf(key).display);
}

Qt::Key menuKey(SpecialKey key)
{
    return entryOf(key).menuKey;
}

} // namespace tintwick
