#pragma once

#include <QPainterPath>
#include <QRectF>

namespace tintwick {

/// A rectangle whose corners are continuous curves: each begins half a radius before a circle's arc would, with hardly
/// any curvature, and meets the arc in its middle. Where a side is too short for that, the corner turns into the arc.
[[nodiscard]] QPainterPath roundedPath(const QRectF& rect, double radius);

} // namespace tintwick
