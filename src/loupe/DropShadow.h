#pragma once

#include <QImage>

namespace tintwick {

/// A shadow in physical pixels, y downwards.
struct DropShadow
{
    double offsetY = 0;
    /// Twice the standard deviation of the Gaussian.
    double blur = 0;
    /// How black the shadow of a large opaque shape is, 0 to 1.
    double opacity = 0;
};

/// The shadow that a shape (Format_Alpha8) throws, as an image of the same size and format. What would fall
/// outside is cut off.
[[nodiscard]] QImage shadowOf(const QImage& shape, const DropShadow& shadow);

} // namespace tintwick
