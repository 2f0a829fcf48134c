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

    /// How far it is visible beyond each edge of what casts it.
    [[nodiscard]] QMargins extents() const;
};

/// Paints the whole shadow of `rect`, also the part that the shape itself covers. The blur is computed once per corner radius,
/// shadow radius, colour and device pixel ratio, cached, and painted at any size.
void drawShadow(QPainter& painter, const QRectF& rect, double cornerRadius, const Shadow& shadow,
                Scheme scheme);

/// Paints a shadow between two others, at `fraction` 0 to 1 of the way. Only the two are blurred, so each frame of an animation
/// costs the same.
void drawShadowBetween(QPainter& painter, const QRectF& rect, double cornerRadius, const Shadow& from,
                       const Shadow& to, double fraction, Scheme scheme);

/// The number of blurs computed in this process. An animated shadow must not compute one per frame.
[[nodiscard]] int blurCount();

} // namespace tintwick
