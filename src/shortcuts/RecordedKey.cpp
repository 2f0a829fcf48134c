#include "RecordedKey.h"

#include "KeyCode.h"
#include "KeyPress.h"
#include "MenuConflict.h"
#include "RecorderServices.h"
#include "Registry.h"
#include "SpecialKey.h"

namespace tintwick::KeyboardShortcuts {

namespace {

// The other keys that have a function, such as the arrows, may not stand alone: a press of them would be lost to every
// program on the desktop.
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
    const auto shortcut = Shortcut::fromCarbon(press.keyCode, press.modifiers & ~modifier::function);
    const auto menu = services.mainMenu();
    if (const auto* item = menuItemWithMatchingShortcut(shortcut, menu, services.layout)) {
        return {Meaning::UsedByMenuItem, shortcut, item->title};
    }
    return {services.registry.isTakenBySystem(shortcut) ? Meaning::UsedBySystem : Meaning::Accept, shortcut};
}

} // namespace tintwick::KeyboardShortcuts
