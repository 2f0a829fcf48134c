#include "RecordedKey.h"

#include "KeyPress.h"
#include "MenuConflict.h"
#include "RecorderServices.h"
#include "ShortcutRegistry.h"
#include "SpecialKey.h"

namespace tintwick {

namespace {

// Other special keys, such as the arrows, need a modifier: without one no other program would get the key any more.
bool isFunctionKey(int keyCode)
{
    const auto special = specialKeyForKeyCode(keyCode);
    return special && *special >= SpecialKey::F1 && *special <= SpecialKey::F20;
}

} // namespace

RecordedKey recordedKey(const KeyPress& press, const RecorderServices& services)
{
    using Meaning = RecordedKey::Meaning;
    if (press.isRepeat) {
        return {Meaning::Ignore};
    }
    constexpr int ownModifiers = modifier::control | modifier::alt | modifier::super;
    if ((press.modifiers & (ownModifiers | modifier::function)) == 0) {
        switch (press.keyCode) {
        case keycode::tab:
            return {Meaning::PassOn};
        case keycode::escape:
            return {Meaning::End};
        case keycode::deleteKey:
        case keycode::deleteForward:
            return {Meaning::Clear};
        default:
            break;
        }
    }
    const bool isBare = (press.modifiers & ownModifiers) == 0;
    if (press.keyCode < 0 || (isBare && !isFunctionKey(press.keyCode))) {
        return {Meaning::Refuse};
    }
    // The Function key is not part of a combination, although it may be held.
    const Shortcut shortcut{press.keyCode, press.modifiers & modifier::all & ~modifier::function};
    if (const auto item = menuItemWithShortcut(shortcut, services.menu, services.layout)) {
        return {Meaning::UsedByMenuItem, shortcut, *item};
    }
    return {services.shortcuts.isTaken(shortcut) ? Meaning::UsedBySystem : Meaning::Accept, shortcut};
}

} // namespace tintwick
