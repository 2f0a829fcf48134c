#pragma once

#include "ContextMenu.h"
#include "Theme.h"

namespace tintwick {

class AppState;
struct ColorCollection;

/// The gradient behind the symbol of a collection: its own colour, or the one of its place in the list.
[[nodiscard]] const theme::Gradient& iconGradient(const ColorCollection& collection, qsizetype position);

/// The submenu "Icon Color".
[[nodiscard]] MenuEntry iconColorMenu(AppState& state, const ColorCollection& collection);

} // namespace tintwick
