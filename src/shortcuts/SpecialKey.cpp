#include "SpecialKey.h"

#include "KeyCode.h"
#include "LocalizedString.h"

#include <algorithm>
#include <iterator>

namespace tintwick::KeyboardShortcuts {

namespace {

struct Entry
{
    SpecialKey key;
    int keyCode;
    const char16_t* display;
    char16_t menuKeyEquivalent;
};

// In the order of the enumeration. U+20E3 is the combining keycap, U+20DD the combining circle.
constexpr Entry entries[] = {
    {SpecialKey::Return, keycode::returnKey, u"\u21A9", u'\r'},
    {SpecialKey::Delete, keycode::deleteKey, u"\u232B", u'\b'},
    {SpecialKey::DeleteForward, keycode::deleteForward, u"\u2326", u'\uF728'},
    {SpecialKey::End, keycode::end, u"\u2198", u'\uF72B'},
    {SpecialKey::Escape, keycode::escape, u"\u238B", u'\x1B'},
    {SpecialKey::Help, keycode::help, u"?\u20DD", u'\uF746'},
    {SpecialKey::Home, keycode::home, u"\u2196", u'\uF729'},
    {SpecialKey::Space, keycode::space, nullptr, u' '},
    {SpecialKey::Tab, keycode::tab, u"\u21E5", u'\t'},
    {SpecialKey::PageUp, keycode::pageUp, u"\u21DE", u'\uF72C'},
    {SpecialKey::PageDown, keycode::pageDown, u"\u21DF", u'\uF72D'},
    {SpecialKey::UpArrow, keycode::upArrow, u"\u2191", u'\uF700'},
    {SpecialKey::RightArrow, keycode::rightArrow, u"\u2192", u'\uF703'},
    {SpecialKey::DownArrow, keycode::downArrow, u"\u2193", u'\uF701'},
    {SpecialKey::LeftArrow, keycode::leftArrow, u"\u2190", u'\uF702'},
    {SpecialKey::F1, keycode::f1, u"F1", u'\uF704'},
    {SpecialKey::F2, keycode::f2, u"F2", u'\uF705'},
    {SpecialKey::F3, keycode::f3, u"F3", u'\uF706'},
    {SpecialKey::F4, keycode::f4, u"F4", u'\uF707'},
    {SpecialKey::F5, keycode::f5, u"F5", u'\uF708'},
    {SpecialKey::F6, keycode::f6, u"F6", u'\uF709'},
    {SpecialKey::F7, keycode::f7, u"F7", u'\uF70A'},
    {SpecialKey::F8, keycode::f8, u"F8", u'\uF70B'},
    {SpecialKey::F9, keycode::f9, u"F9", u'\uF70C'},
    {SpecialKey::F10, keycode::f10, u"F10", u'\uF70D'},
    {SpecialKey::F11, keycode::f11, u"F11", u'\uF70E'},
    {SpecialKey::F12, keycode::f12, u"F12", u'\uF70F'},
    {SpecialKey::F13, keycode::f13, u"F13", u'\uF710'},
    {SpecialKey::F14, keycode::f14, u"F14", u'\uF711'},
    {SpecialKey::F15, keycode::f15, u"F15", u'\uF712'},
    {SpecialKey::F16, keycode::f16, u"F16", u'\uF713'},
    {SpecialKey::F17, keycode::f17, u"F17", u'\uF714'},
    {SpecialKey::F18, keycode::f18, u"F18", u'\uF715'},
    {SpecialKey::F19, keycode::f19, u"F19", u'\uF716'},
    {SpecialKey::F20, keycode::f20, u"F20", u'\uF717'},
    {SpecialKey::Keypad0, keycode::keypad0, u"0\u20E3", u'0'},
    {SpecialKey::Keypad1, keycode::keypad1, u"1\u20E3", u'1'},
    {SpecialKey::Keypad2, keycode::keypad2, u"2\u20E3", u'2'},
    {SpecialKey::Keypad3, keycode::keypad3, u"3\u20E3", u'3'},
    {SpecialKey::Keypad4, keycode::keypad4, u"4\u20E3", u'4'},
    {SpecialKey::Keypad5, keycode::keypad5, u"5\u20E3", u'5'},
    {SpecialKey::Keypad6, keycode::keypad6, u"6\u20E3", u'6'},
    {SpecialKey::Keypad7, keycode::keypad7, u"7\u20E3", u'7'},
    {SpecialKey::Keypad8, keycode::keypad8, u"8\u20E3", u'8'},
    {SpecialKey::Keypad9, keycode::keypad9, u"9\u20E3", u'9'},
    {SpecialKey::KeypadClear, keycode::keypadClear, u"\u2612\u20E3", u'\uF739'},
    {SpecialKey::KeypadDecimal, keycode::keypadDecimal, u".\u20E3", u'.'},
    {SpecialKey::KeypadDivide, keycode::keypadDivide, u"/\u20E3", u'/'},
    {SpecialKey::KeypadEnter, keycode::keypadEnter, u"\u21A9\u20E3", u'\x03'},
    {SpecialKey::KeypadEquals, keycode::keypadEquals, u"=\u20E3", u'='},
    {SpecialKey::KeypadMinus, keycode::keypadMinus, u"-\u20E3", u'-'},
    {SpecialKey::KeypadMultiply, keycode::keypadMultiply, u"*\u20E3", u'*'},
    {SpecialKey::KeypadPlus, keycode::keypadPlus, u"+\u20E3", u'+'},
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
        return localizedString(QLatin1StringView("space_key"));
    }
    return QString::fromUtf16(entryOf(key).display);
}

QChar menuKeyEquivalent(SpecialKey key)
{
    return entryOf(key).menuKeyEquivalent;
}

} // namespace tintwick::KeyboardShortcuts
