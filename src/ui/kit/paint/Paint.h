#pragma once

#include "Theme.h"

#include <QBrush>
#include <QPointF>
#include <QRectF>

class QPainter;

namespace tintwick {

// Lengths are in points. Functions that draw set antialiasing as they need it and restore the state of the painter.

/// Physical pixels per point of the paint device, which may be a redirected one instead of the widget.
[[nodiscard]] double devicePixelRatioOf(const QPainter& painter);

/// A brush from the top-left to the bottom-right corner of `rect`.
[[nodiscard]] QBrush gradientBrush(const QRectF& rect, const theme::Gradient& gradient, Scheme scheme);

/// Interpolates linearly: `from` at fraction 0, `to` at 1.
[[nodiscard]] QColor mixed(const QColor& from, const QColor& to, double fraction);

/// Scales what is drawn from now on about the centre of `rect`.
void scaleAboutMiddle(QPainter& painter, const QRectF& rect, double scale);

void fillRounded(QPainter& painter, const QRectF& rect, double radius, const QBrush& brush);
/// A line that lies completely inside the shape. It is at least one physical pixel wide.
void strokeInside(QPainter& painter, const QRectF& rect, double radius, const QColor& color, double width);
/// The same, dashed: `on` and `off` in points.
void strokeInsideDashed(QPainter& painter, const QRectF& rect, double radius, const QColor& color,
                        double width, double on, double off);
/// A horizontal line, half a point thick, below `start`, aligned to whole pixels.
void drawHairline(QPainter& painter, const QPointF& start, double length, const QColor& color);
/// The ring of keyboard focus, along the inside of `rect`.
void drawFocusRing(QPainter& painter, const QRectF& rect, double radius, Scheme scheme);
/// Cells of 4 points, white in the top-left corner, clipped to the rounded rectangle.
void drawCheckerboard(QPainter& painter, const QRectF& rect, double radius);

} // namespace tintwick
