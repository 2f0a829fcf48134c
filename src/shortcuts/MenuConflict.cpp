#include "MenuConflict.h"

#include "Modifiers.h"
#include "Presentation.h"
#include "SpecialKey.h"

namespace tintwick::KeyboardShortcuts {

namespace {

bool matches(const MenuItem& item, const std::optional<QString>& key, std::uint32_t modifiers)
{
    auto keyEquivalent = item.keyEquivalent;
    auto itemModifiers = item.modifiers;
    const auto lowerCase = keyEquivalent.toLower();
    if ((modifiers & eventflag::shift) != 0 && lowerCase != keyEquivalent) {
        keyEquivalent = lowerCase;
        itemModifiers |= eventflag::shift;
    }
    return key == keyEquivalent && itemModifiers == modifiers;
}

const MenuItem* firstMatch(const std::vector<MenuItem>& menu, const std::optional<QString>& key,
                           std::uint32_t modifiers)
{
    for (const auto& item : menu) {
        if (matches(item, key, modifiers)) {
            return &item;
        }
        if (const auto* match = firstMatch(item.submenu, key, modifiers)) {
            return match;
        }
    }
    return nullptr;
}

} // namespace

const MenuItem* menuItemWithMatchingShortcut(const Shortcut& shortcut, const std::vector<MenuItem>& menu,
                                             const KeyboardLayout& layout)
{
    const auto special = specialKeyForKeyCode(shortcut.carbonKeyCode);
    const auto key =
        special ? std::optional<QString>(menuKeyEquivalent(*special)) : keyToCharacter(shortcut, layout);
    return firstMatch(menu, key, shortcut.modifiers());
}

} // namespace tintwick::KeyboardShortcuts
