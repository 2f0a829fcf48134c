#pragma once

#include "MenuItem.h"
#include "Shortcut.h"

#include <vector>

namespace tintwick {
class KeyboardLayout;
}

namespace tintwick::KeyboardShortcuts {

/// The first item, from top to bottom and each one before its submenu, that the combination would trigger; nullptr when
/// the menu leaves it free.
[[nodiscard]] const MenuItem* menuItemWithMatchingShortcut(const Shortcut& shortcut,
                                                           const std::vector<MenuItem>& menu,
                                                           const KeyboardLayout& layout);

} // namespace tintwick::KeyboardShortcuts
