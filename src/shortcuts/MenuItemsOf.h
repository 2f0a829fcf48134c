#pragma once

#include "MenuItem.h"

#include <vector>

class QMenu;

namespace tintwick::KeyboardShortcuts {

/// The items of a menu as the conflict check reads them, with the keys that the menu shows beside them: Ctrl is Control,
/// Alt is Option and Meta, the Super key, is Command. Separators are left out.
[[nodiscard]] std::vector<MenuItem> menuItemsOf(const QMenu& menu);

} // namespace tintwick::KeyboardShortcuts
