#include "RecordedKey.h"

#include "CommonUse.h"
#include "KeyPress.h"
#include "MenuConflict.h"
#include "RecorderServices.h"
#include "ShortcutRegistry.h"
#include "SpecialKey.h"

#include <algorithm>

namespace tintwick {

namespace {

// Other special keys, such as the arrows, need a modifier: without one no other program would get the key any more.
bool worksAlone(int keyCode)
{
    const auto special = specialKeyForKeyCode(keyCode);
    return special &&
           ((*special >= SpecialKey::F1 && *special <= SpecialKey::F24) || *special == SpecialKey::Print);
}

/// What the key does to the field, for a key without Control, Alt and Super. The character counts and not the position,
/// because a keymap may move Escape, Backspace and Delete to other keys.
std::optional<RecordedKey::Meaning> editingMeaning(const KeyPress& press)
{
    using Meaning = RecordedKey::Meaning;
    constexpr char32_t backspace = 0x08, tab = 0x09, escape = 0x1B, forwardDelete = 0x7F;
    const auto types = [&](char32_t character, int keyCode) {
        return press.character == character || (press.character == 0 && press.keyCode == keyCode);
    };
    if (types(tab, keycode::tab)) {
        return Meaning::PassOn;
    }
    if (types(escape, keycode::escape)) {
        return Meaning::End;
    }
    if (types(backspace, keycode::deleteKey) || types(forwardDelete, keycode::deleteForward)) {
        return Meaning::Clear;
    }
    return std::nullopt;
}

std::optional<RecordedKey::Refusal> refusalOf(const KeyPress& press)
{
    constexpr int ownModifiers = modifier::control | modifier::alt | modifier::super;
    if (press.hasOtherModifier) {
        return RecordedKey::Refusal::OtherModifier;
    }
    if (press.keyCode < 0) {
        return RecordedKey::Refusal::UnknownKey;
    }
    const bool isBare = (press.modifiers & ownModifiers) == 0;
    return isBare && !worksAlone(press.keyCode) ? std::optional(RecordedKey::Refusal::NeedsModifier)
                                                : std::nullopt;
}

std::optional<ShortcutAction> otherActionWith(const Shortcut& shortcut, ShortcutAction action,
                                              const ShortcutRegistry& shortcuts)
{
    const auto* const other = std::ranges::find_if(allShortcutActions, [&](ShortcutAction each) {
        return each != action && shortcuts.shortcut(each) == shortcut;
    });
    return other != allShortcutActions.end() ? std::optional(*other) : std::nullopt;
}

} // namespace

RecordedKey recordedKey(const KeyPress& press, ShortcutAction action, const RecorderServices& services)
{
    using Meaning = RecordedKey::Meaning;
    if (press.isRepeat) {
        return {Meaning::Ignore};
    }
    constexpr int notBare = modifier::control | modifier::alt | modifier::super | modifier::function;
    if ((press.modifiers & notBare) == 0 && !press.hasOtherModifier) {
        if (const auto meaning = editingMeaning(press)) {
            return {*meaning};
        }
    }
    if (const auto refusal = refusalOf(press)) {
        return {.meaning = Meaning::Refuse, .refusal = refusal};
    }
    // The Function key is not part of a combination, although it may be held.
    const Shortcut shortcut{press.keyCode, press.modifiers & modifier::all & ~modifier::function};
    if (const auto item = menuItemWithShortcut(shortcut, services.menu, services.layout)) {
        return {Meaning::UsedByMenuItem, shortcut, *item};
    }
    if (services.shortcuts.isTaken(shortcut)) {
        return {Meaning::UsedBySystem, shortcut};
    }
    // The user has accepted the present shortcut already.
    if (services.shortcuts.shortcut(action) == shortcut) {
        return {Meaning::Accept, shortcut};
    }
    if (const auto other = otherActionWith(shortcut, action, services.shortcuts)) {
        return {Meaning::UsedByOtherAction, shortcut, titleOf(*other)};
    }
    if (const auto use = commonUse(shortcut, services.layout)) {
        return {Meaning::UsedByMostPrograms, shortcut, *use};
    }
    return {Meaning::Accept, shortcut};
}

} // namespace tintwick
