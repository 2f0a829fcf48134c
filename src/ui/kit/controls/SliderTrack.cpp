#include "SliderTrack.h"

#include "Paint.h"
#include "Theme.h"

#include <QLinearGradient>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace tintwick {

namespace {

constexpr double veilOpacity = 0.7;
constexpr int hatchDistance = 5;
constexpr double hatchWidth = 1;
constexpr theme::Color hatch = theme::textThird.opacity(0.5);
constexpr double limitWidth = 1;
constexpr theme::Color limit = theme::textSecond;

QBrush gradientOf(const QRectF& rect, const SliderTrack& track, double inset)
{
    QLinearGradient gradient(rect.left() + inset, 0, rect.right() - inset, 0);
    QGradientStops stops;
    const double last = std::max<double>(1, static_cast<double>(track.colors.size() - 1));
    for (qsizetype i = 0; i < track.colors.size(); ++i) {
        stops.append({static_cast<double>(i) / last, track.colors[i]});
    }
    gradient.setStops(stops);
    return gradient;
}

void drawHatch(QPainter& painter, const QRectF& rect, Scheme scheme)
{
    painter.save();
    painter.setClipRect(rect);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(hatch.in(scheme), hatchWidth));
    // From a fixed origin, so that the lines stand still while the limit moves.
    const int first = static_cast<int>(std::floor((rect.left() - rect.height()) / hatchDistance));
    for (int line = first; line * hatchDistance < rect.right(); ++line) {
        const double x = line * hatchDistance;
        painter.drawLine(QPointF(x, rect.bottom()), QPointF(x + rect.height(), rect.top()));
    }
    painter.restore();
}

} // namespace

bool SliderTrack::isOutside(double fraction) const
{
    return std::ranges::any_of(
        outside, [fraction](const Part& part) { return fraction > part.from && fraction < part.to; });
}

void drawSliderTrack(QPainter& painter, const QRectF& rect, const SliderTrack& track, double inset,
                     Scheme scheme)
{
    const double radius = rect.height() / 2;
    const double scale = devicePixelRatioOf(painter);
    // On whole pixels, so that a limit is crisp.
    const auto place = [&](double fraction) {
        const double x = rect.left() + inset + fraction * (rect.width() - 2 * inset);
        return std::round(x * scale) / scale;
    };
    painter.save();
    const bool isTranslucent =
        std::ranges::any_of(track.colors, [](const QColor& color) { return color.alpha() < 255; });
    if (isTranslucent) {
        drawCheckerboard(painter, rect, radius);
    }
    fillRounded(painter, rect, radius, gradientOf(rect, track, inset));
    painter.setCompositionMode(QPainter::CompositionMode_SourceAtop);
    for (const SliderTrack::Part& part : track.outside) {
        const double left = part.from > 0 ? place(part.from) : rect.left();
        const double right = part.to < 1 ? place(part.to) : rect.right();
        const QRectF room(left, rect.top(), right - left, rect.height());
        painter.fillRect(room, theme::bg.opacity(veilOpacity).in(scheme));
        drawHatch(painter, room, scheme);
        if (part.from > 0) {
            painter.fillRect(QRectF(left, rect.top(), limitWidth, rect.height()), limit.in(scheme));
        }
        if (part.to < 1) {
            painter.fillRect(QRectF(right - limitWidth, rect.top(), limitWidth, rect.height()),
                             limit.in(scheme));
        }
    }
    painter.restore();
    strokeInside(painter, rect, radius, theme::colorEdge.in(scheme), theme::colorEdgeWidth);
}

} // namespace tintwick
