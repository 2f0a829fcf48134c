#pragma once

#include "Theme.h"

#include <QBrush>
#include <QPointF>
#include <QRectF>

class QPainter;

namespace tintwick {

// All lengths are in points. Each helper that draws leaves the painter as it was, with antialiasing as it needs it.

/// Physical pixels per point of what is really painted on, which need not be the widget itself.
[[nodiscard]] double devicePixelRatioOf(const QPainter& painter);

/// A brush from the top-left to the bottom-right corner of `rect`.
[[nodiscard]] QBrush gradientBrush(const QRectF& rect, const theme::Gradient& gradient, Scheme scheme);

/// On the straight way from one colour to the other; at 0 it is `from`, at 1 `to`.
[[nodiscard]] QColor mixed(const QColor& from, const QColor& to, double fraction);

/// From here on the painter draws larger or smaller, while the middle of `rect` stays where it is.
void scaleAboutMiddle(QPainter& painter, const QRectF& rect, double scale);

void fillRounded(QPainter& painter, const QRectF& rect, double radius, const QBrush& brush);
/// A line that lies wholly inside the shape.
void strokeInside(QPainter& painter, const QRectF& rect, double radius, const QColor& color, double width);
/// The same, dashed: `on` and `off` in points.
void strokeInsideDashed(QPainter& painter, const QRectF& rect, double radius, const QColor& color,
                        double width, double on, double off);
/// A horizontal line, half a point thick, below `start`. It lies on whole pixels.
void drawHairline(QPainter& painter, const QPointF& start, double length, const QColor& color);
/// The ring of keyboard focus, along the inside of `rect`.
void drawFocusRing(QPainter& painter, const QRectF& rect, double radius, Scheme scheme);
/// Cells of 4 points from the top-left corner of `rect`, the first one white, cut off at the rounded edge.
void drawCheckerboard(QPainter& painter, const QRectF& rect, double radius);

} // namespace tintwick
