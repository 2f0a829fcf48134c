#pragma once

#include <QString>

namespace tintwick {

class Stack;

// What the screens of the history and of a collection have in common.

/// "1 color", "7 colors"
[[nodiscard]] QString colorCountText(qsizetype count);
/// What stands in the middle of a screen without colours: a symbol, and below it how colours come.
[[nodiscard]] Stack* emptyState(const QString& symbolName, const QString& text);

} // namespace tintwick
