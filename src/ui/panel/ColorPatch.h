#pragma once

#include "Scheme.h"

class QColor;
class QPainter;
class QRectF;

namespace tintwick {

/// Draws a rounded area of a picked colour with an edge, and checks below a translucent one. Lengths in points.
void drawColorPatch(QPainter& painter, const QRectF& rect, double radius, const QColor& color, Scheme scheme);

/// Draws "Aa" in a picked colour, as a preview of text on a patch, and a ring. For the patch on which that colour will be
/// dropped.
void drawTextPreview(QPainter& painter, const QRectF& patch, double radius, const QColor& text,
                     Scheme scheme);

} // namespace tintwick
