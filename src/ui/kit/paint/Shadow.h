#pragma once

#include "Theme.h"

#include <QMargins>
#include <QPointF>
#include <QRectF>

class QPainter;

namespace tintwick {

/// The blurred shadow of a rounded rectangle, in points.
struct Shadow
{
    theme::Color color = theme::clear;
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

/// Paints what a shadow is on its way from one to another, `fraction` 0 to 1 of it. It blurs the two and nothing in between,
/// so that every frame of the way costs the same.
void drawShadowBetween(QPainter& painter, const QRectF& rect, double cornerRadius, const Shadow& from,
                       const Shadow& to, double fraction, Scheme scheme);

/// The shadows blurred so far in this process. One that moves must not add to them with each frame.
[[nodiscard]] int blurCount();

} // namespace tintwick
