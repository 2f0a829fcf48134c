#pragma once

#include <QImage>

namespace tintwick {

/// A black shadow. Lengths are in physical pixels, y downwards.
struct DropShadow
{
    double offsetY = 0;
    /// Twice the standard deviation of the Gaussian.
    double blur = 0;
    /// The alpha of the shadow below the middle of a large opaque shape, 0 to 1.
    double opacity = 0;
};

/// The shadow of `shape` (Format_Alpha8) as an image of the same size and format. Pixels outside are clipped.
[[nodiscard]] QImage shadowOf(const QImage& shape, const DropShadow& shadow);

} // namespace tintwick
