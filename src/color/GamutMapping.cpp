#include "GamutMapping.h"

#include <algorithm>
#include <cmath>

namespace tintwick {

namespace {

/// The difference in Oklab that is just noticeable.
constexpr double noticeable = 0.02;
constexpr double precision = 0.0001;

Components clipped(Components srgb)
{
    for (double& component : srgb) {
        component = std::clamp(component, 0.0, 1.0);
    }
    return srgb;
}

Components srgbFromOklch(const Components& oklch)
{
    return srgbFromXyzD65(xyzD65FromOklab(labFromLch(oklch)));
}

double difference(const Components& oklch, const Components& srgb)
{
    const Components a = labFromLch(oklch);
    const Components b = oklabFromXyzD65(xyzD65FromSrgb(srgb));
    return std::hypot(a[0] - b[0], a[1] - b[1], a[2] - b[2]);
}

} // namespace

bool isInGamut(const Components& srgb)
{
    constexpr double tolerance = 1e-4;
    return std::ranges::all_of(
        srgb, [](double component) { return component >= -tolerance && component <= 1 + tolerance; });
}

Components gamutMapped(const Components& xyzD65)
{
    const Components srgb = srgbFromXyzD65(xyzD65);
    if (isInGamut(srgb)) {
        return clipped(srgb);
    }
    Components oklch = lchFromLab(oklabFromXyzD65(xyzD65));
    // The lightness of white and black is not exact after the conversion.
    constexpr double rounding = 1e-6;
    if (oklch[0] >= 1 - rounding) {
        return {1, 1, 1};
    }
    if (oklch[0] <= rounding) {
        return {0, 0, 0};
    }

    Components result = clipped(srgb);
    if (difference(oklch, result) < noticeable) {
        return result;
    }
    double lowest = 0;
    double highest = oklch[1];
    bool isLowestInGamut = true;
    while (highest - lowest > precision) {
        oklch[1] = (lowest + highest) / 2;
        const Components current = srgbFromOklch(oklch);
        if (isLowestInGamut && isInGamut(current)) {
            lowest = oklch[1];
            continue;
        }
        result = clipped(current);
        const double error = difference(oklch, result);
        if (error >= noticeable) {
            highest = oklch[1];
        } else if (noticeable - error < precision) {
            return result;
        } else {
            isLowestInGamut = false;
            lowest = oklch[1];
        }
    }
    return result;
}

} // namespace tintwick
