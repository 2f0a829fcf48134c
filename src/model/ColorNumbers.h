#pragma once

#include <array>

namespace tintwick {

struct CapturedColor;

/// The numbers of a colour in other models, not rounded. Components outside 0 to 1 count as the nearest inside.
struct ColorNumbers
{
    explicit ColorNumbers(const CapturedColor& color);

    /// Red, green, blue and opacity, 0 to 1.
    std::array<double, 3> rgb{};
    double alpha = 1;
    /// Of HSL and HSV, in degrees; 0 for a grey.
    double hue = 0;
    /// Of HSL, 0 to 1.
    double saturation = 0;
    double lightness = 0;
    /// Of HSV, 0 to 1.
    double hsvSaturation = 0;
    double value = 0;
    /// Cyan, magenta, yellow and black, 0 to 1, without a colour profile: black is 1 minus the greatest component.
    std::array<double, 4> cmyk{};
    /// Lightness 0 to 1, chroma, and hue in degrees, which is 0 for a grey.
    std::array<double, 3> oklch{};
};

} // namespace tintwick
