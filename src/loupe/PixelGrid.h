#pragma once

#include <vector>

namespace tintwick {

/// A colour read from the screen: sRGB components, 0 to 1; always opaque.
struct SampledColor
{
    double red = 0;
    double green = 0;
    double blue = 0;
    double alpha = 1;

    friend constexpr bool operator==(const SampledColor&, const SampledColor&) = default;
};

/// What stands where no pixel could be read.
inline constexpr SampledColor darkGray{1.0 / 3, 1.0 / 3, 1.0 / 3, 1};

/// The pixels around a point. Row 0 is the top row on the screen, column 0 the left one; from a capture it is square
/// with side 2 × radius + 1 and the point in the middle.
using PixelGrid = std::vector<std::vector<SampledColor>>;

} // namespace tintwick
