#pragma once

#include "ContextMenu.h"
#include "WantedPick.h"

#include <functional>

namespace tintwick {

using AskForPick = std::function<void(const WantedPick& pick)>;

/// The picks into a palette: at once and after the offered delays. `ask` is called with the chosen one.
[[nodiscard]] QList<MenuEntry> pickIntoMenu(const AskForPick& ask, const QUuid& palette);
/// The picks after a delay.
[[nodiscard]] QList<MenuEntry> delayedPickMenu(const AskForPick& ask);

} // namespace tintwick
