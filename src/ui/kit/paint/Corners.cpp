#include "Corners.h"

#include <algorithm>

namespace tintwick {

namespace {

// A corner of radius 1, measured from its point along a side and perpendicular to it. The middle 45 degrees are a circular arc.
// On both sides a cubic joins it to the straight line with matching curvature.
constexpr double start = 1.28;
constexpr double firstHandle = 0.95617;
constexpr double secondHandle = 0.80109;
constexpr double arcAlong = 0.61732; // 1 − sin 22.5°
constexpr double arcAway = 0.07612;  // 1 − cos 22.5°
constexpr double arcHandleAlong = 0.37231;
constexpr double arcHandleAway = 0.17761;

/// Appends one corner. `from` and `to` point from the corner along the side before it and the side after it.
void addCorner(QPainterPath& path, QPointF corner, QPointF from, QPointF to, double radius, double fromStart,
               double toStart)
{
    const auto at = [&](double alongFrom, double alongTo) {
        return corner + from * (alongFrom * radius) + to * (alongTo * radius);
    };
    path.lineTo(corner + from * fromStart);
    path.cubicTo(at(firstHandle, 0), at(secondHandle, 0), at(arcAlong, arcAway));
    path.cubicTo(at(arcHandleAlong, arcHandleAway), at(arcHandleAway, arcHandleAlong), at(arcAway, arcAlong));
    path.cubicTo(at(0, secondHandle), at(0, firstHandle), corner + to * toStart);
}

} // namespace

QPainterPath roundedPath(const QRectF& rect, double radius)
{
    QPainterPath path;
    const double fitting = std::min({radius, rect.width() / 2, rect.height() / 2});
    if (fitting <= 0) {
        path.addRect(rect);
        return path;
    }
    const double x = std::min(start * fitting, rect.width() / 2);
    const double y = std::min(start * fitting, rect.height() / 2);
    constexpr QPointF left(-1, 0);
    constexpr QPointF right(1, 0);
    constexpr QPointF up(0, -1);
    constexpr QPointF down(0, 1);
    path.moveTo(rect.left() + x, rect.top());
    addCorner(path, rect.topRight(), left, down, fitting, x, y);
    addCorner(path, rect.bottomRight(), up, left, fitting, y, x);
    addCorner(path, rect.bottomLeft(), right, up, fitting, x, y);
    addCorner(path, rect.topLeft(), down, right, fitting, y, x);
    path.closeSubpath();
    return path;
}

} // namespace tintwick
