#include "ColorPatch.h"

#include "Paint.h"
#include "Theme.h"

#include <QColor>

namespace tintwick {

void drawColorPatch(QPainter& painter, const QRectF& rect, double radius, const QColor& color, Scheme scheme)
{
    if (color.alpha() < 255) {
        drawCheckerboard(painter, rect, radius);
    }
    fillRounded(painter, rect, radius, color);
    strokeInside(painter, rect, radius, theme::colorEdge.in(scheme), theme::colorEdgeWidth);
}

} // namespace tintwick
