#include "ui/kit/Corners.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace tintwick {

namespace {

/// How far a corner reaches along a side, in radii.
constexpr double reach = 1.5;

/// One corner as a cubic curve, measured from the corner point along a side: where it leaves the side, and its handle.
struct Leave
{
    double start;
    double handle;
};

Leave leave(double side, double radius)
{
    const double start = std::min(reach * radius, side / 2);
    // The middle of a cubic lies at (start + 3·handle) / 8 from each side; that of a circle's arc at radius·(1 − 1/√2).
    const double middle = radius * (1 - 1 / std::numbers::sqrt2);
    return {start, (8 * middle - start) / 3};
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
    const auto [x, handleX] = leave(rect.width(), fitting);
    const auto [y, handleY] = leave(rect.height(), fitting);
    const double left = rect.left();
    const double top = rect.top();
    const double right = rect.right();
    const double bottom = rect.bottom();
    path.moveTo(left + x, top);
    path.lineTo(right - x, top);
    path.cubicTo(right - handleX, top, right, top + handleY, right, top + y);
    path.lineTo(right, bottom - y);
    path.cubicTo(right, bottom - handleY, right - handleX, bottom, right - x, bottom);
    path.lineTo(left + x, bottom);
    path.cubicTo(left + handleX, bottom, left, bottom - handleY, left, bottom - y);
    path.lineTo(left, top + y);
    path.cubicTo(left, top + handleY, left + handleX, top, left + x, top);
    path.closeSubpath();
    return path;
}

} // namespace tintwick
