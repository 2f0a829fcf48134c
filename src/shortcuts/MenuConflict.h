#pragma once

#include "Shortcut.h"

#include <QString>

#include <optional>

class QMenu;

namespace tintwick {

class KeyboardLayout;

/// The text, without its mnemonic marks, of the first menu item that the keys would trigger. The search goes from top to
/// bottom, each item before its submenu. None when no item has these keys.
[[nodiscard]] std::optional<QString> menuItemWithShortcut(const Shortcut& shortcut, const QMenu& menu,
                                                          const KeyboardLayout& layout);

} // namespace tintwick
