#include "ColorPatch.h"

#include "Paint.h"
#include "Theme.h"

#include <QColor>
#include <QPainter>

namespace tintwick {

using namespace Qt::StringLiterals;

void drawColorPatch(QPainter& painter, const QRectF& rect, double radius, const QColor& color, Scheme scheme)
{
    if (color.alpha() < 255) {
        drawCheckerboard(painter, rect, radius);
    }
    fillRounded(painter, rect, radius, color);
    strokeInside(painter, rect, radius, theme::colorEdge.in(scheme), theme::colorEdgeWidth);
}

void drawTextPreview(QPainter& painter, const QRectF& patch, double radius, const QColor& text, Scheme scheme)
{
    constexpr double sizePerSide = 0.4;
    painter.save();
    painter.setFont(theme::font(qRound(patch.height() * sizePerSide), QFont::DemiBold));
    painter.setPen(text);
    painter.drawText(patch, Qt::AlignCenter, u"Aa"_s);
    painter.restore();
    drawFocusRing(painter, patch, radius, scheme);
}

} // namespace tintwick
