#pragma once

#include <QPainterPath>
#include <QRectF>

namespace tintwick {

/// A rectangle whose corners are continuous curves: each leaves its sides somewhat before a circle's arc would, without a
/// jump of curvature, and is that arc in its middle.
[[nodiscard]] QPainterPath roundedPath(const QRectF& rect, double radius);

} // namespace tintwick
