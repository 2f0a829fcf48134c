#pragma once

#include <QFont>
#include <QString>

class QPainter;
class QRectF;

namespace tintwick::KeyboardShortcuts {

// The text of a shortcut as it is drawn. A key of the keypad stands in a frame, which the text says with a combining mark
// that fonts put beside the key, or do not have.

/// In points.
[[nodiscard]] double widthOfShortcut(const QString& text, const QFont& font);
/// In the middle of `place`, in the painter's pen.
void drawShortcut(QPainter& painter, const QRectF& place, const QString& text, const QFont& font);

} // namespace tintwick::KeyboardShortcuts
