#pragma once

#include <QImage>

namespace tintwick {

/// A Gaussian blur for shadows. Lengths are in pixels of the image, y downwards.
struct GaussianBlur
{
    double standardDeviation = 0;
    /// Moves the result down; may be fractional.
    double offsetY = 0;
    /// The factor of the blurred values, 0 to 1.
    double opacity = 1;

    /// The distance at which the blur ends: beyond three standard deviations it is less than one step of a byte.
    [[nodiscard]] int reach() const;
};

/// Blurs an image of Format_Alpha8. The result has the same size and format; pixels outside are clipped.
[[nodiscard]] QImage blurred(const QImage& alpha, const GaussianBlur& blur);

} // namespace tintwick
