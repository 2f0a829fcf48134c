#pragma once

#include <QPainterPath>
#include <QRectF>

namespace tintwick {

/// A rounded rectangle with continuous curvature: each corner is a circular arc in its middle and begins a little before the arc
/// would, so that the curvature does not jump.
[[nodiscard]] QPainterPath roundedPath(const QRectF& rect, double radius);

} // namespace tintwick
