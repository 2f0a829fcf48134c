#pragma once

#include <QString>

namespace tintwick {

class Label;
class Stack;

// Parts that the screens of the history and of a collection share.

/// "1 color", "7 colors"
[[nodiscard]] QString colorCountText(qsizetype count);
/// The centre of a screen without colours: a symbol and below it a text, both centred.
[[nodiscard]] Stack* emptyState(const QString& symbolName, Label* text);
/// The text of an empty screen.
[[nodiscard]] Label* emptyStateLabel(const QString& text);

} // namespace tintwick
