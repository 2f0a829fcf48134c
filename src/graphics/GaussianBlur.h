#pragma once

#include <QImage>

namespace tintwick {

/// A Gaussian blur for shadows. Lengths are in pixels of the image, y downwards.
struct GaussianBlur
{
    double standardDeviation = 0;
    /// Moves the result down; fractions of a pixel are exact.
    double offsetY = 0;
    /// The factor, 0 to 1, that the blurred values are multiplied with.
    double opacity = 1;

    /// How far the blur is visible: beyond three standard deviations it is less than one step of a byte.
    [[nodiscard]] int reach() const;
};

/// Blurs a picture of format Format_Alpha8. The result has the same size and format; what would lie outside is cut off.
[[nodiscard]] QImage blurred(const QImage& alpha, const GaussianBlur& blur);

} // namespace tintwick
