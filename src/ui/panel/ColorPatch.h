#pragma once

#include "Scheme.h"

class QColor;
class QPainter;
class QRectF;

namespace tintwick {

/// Draws a rounded area of a picked colour with an edge, and checks below a translucent one. Lengths in points.
void drawColorPatch(QPainter& painter, const QRectF& rect, double radius, const QColor& color, Scheme scheme);

} // namespace tintwick
