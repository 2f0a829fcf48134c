#pragma once

#include "ui/DS.h"

#include <QMargins>
#include <QPointF>
#include <QRectF>

class QPainter;

namespace tintwick {

/// The blurred shadow of a rounded rectangle, in points.
struct Shadow
{
    DS::Color color = DS::clear;
    /// Twice the standard deviation of the blur.
    double radius = 0;
    QPointF offset;

    /// How far it can be seen beyond the edges of what casts it.
    [[nodiscard]] QMargins extents() const;
};

/// Paints what lies outside and below `rect` alike; the shape itself is painted over it. The blur is computed once per
/// corner radius, shadow radius, colour and device pixel ratio and then painted at any size.
void drawShadow(QPainter& painter, const QRectF& rect, double cornerRadius, const Shadow& shadow,
                Scheme scheme);

} // namespace tintwick
