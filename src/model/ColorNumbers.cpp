#include "ColorNumbers.h"

#include "CapturedColor.h"
#include "ColorSpaces.h"

#include <algorithm>
#include <cmath>

namespace tintwick {

namespace {

double inUnit(double component)
{
    return std::clamp(component, 0.0, 1.0);
}

double hueOf(const std::array<double, 3>& rgb, double max, double range)
{
    const auto [red, green, blue] = rgb;
    double sextant = 0;
    if (range == 0) {
        return 0;
    }
    if (red == max) {
        sextant = (green - blue) / range;
    } else if (green == max) {
        sextant = (blue - red) / range + 2;
    } else {
        sextant = (red - green) / range + 4;
    }
    return sextant < 0 ? (sextant + 6) * 60 : sextant * 60;
}

std::array<double, 3> oklchOf(const std::array<double, 3>& rgb)
{
    Components lch = lchFromLab(oklabFromXyzD65(xyzD65FromSrgb(rgb)));
    // Less chroma comes from rounding, and its hue has no meaning.
    constexpr double greyest = 4e-5;
    return lch[1] < greyest ? std::array{lch[0], 0.0, 0.0} : lch;
}

} // namespace

ColorNumbers::ColorNumbers(const CapturedColor& color)
    : rgb{inUnit(color.red), inUnit(color.green), inUnit(color.blue)}
    , alpha(inUnit(color.alpha))
    , oklch(oklchOf(rgb))
{
    const double max = std::ranges::max(rgb);
    const double min = std::ranges::min(rgb);
    const double range = max - min;
    hue = hueOf(rgb, max, range);
    lightness = (max + min) / 2;
    const double room = 1 - std::abs(2 * lightness - 1);
    saturation = range == 0 || room == 0 ? 0 : range / room;
    hsvSaturation = max == 0 ? 0 : range / max;
    value = max;
    for (std::size_t i = 0; i < rgb.size(); ++i) {
        cmyk.at(i) = max == 0 ? 0 : (max - rgb.at(i)) / max;
    }
    cmyk.back() = 1 - max;
}

} // namespace tintwick
