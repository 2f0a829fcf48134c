#pragma once

#include <QFont>
#include <QString>

class QPainter;
class QRectF;

namespace tintwick {

// Draws the description of a shortcut. In the text a combining mark encloses a keypad key; most fonts cannot draw it, so
// the key is drawn in a frame instead.

/// The width that drawShortcut() needs, in points.
[[nodiscard]] double widthOfShortcut(const QString& text, const QFont& font);
/// Draws the text in the centre of `place`, with the painter's pen.
void drawShortcut(QPainter& painter, const QRectF& place, const QString& text, const QFont& font);

} // namespace tintwick
