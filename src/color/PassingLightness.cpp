#include "PassingLightness.h"

#include "GamutMapping.h"
#include "WcagContrast.h"

#include <algorithm>
#include <cmath>

namespace tintwick {

Components roundedTo8Bits(const Components& srgb)
{
    Components result{};
    std::ranges::transform(srgb, result.begin(), [](double component) {
        return std::round(std::clamp(component, 0.0, 1.0) * 255) / 255;
    });
    return result;
}

std::optional<Components> nearestPassing(const Components& foreground, const Components& ground, double ratio)
{
    const auto passes = [&](const Components& color) { return contrastRatio(color, ground) >= ratio; };
    const Components start = roundedTo8Bits(foreground);
    if (passes(start)) {
        return start;
    }
    const Components oklch = lchFromLab(oklabFromXyzD65(xyzD65FromSrgb(start)));
    const auto ofLightness = [&](double lightness) {
        return roundedTo8Bits(gamutMapped(xyzD65FromOklab(labFromLch({lightness, oklch[1], oklch[2]}))));
    };

    // Smaller than any step of 8 bits.
    constexpr double precision = 1e-6;
    std::optional<double> nearest;
    for (const double end : {0.0, 1.0}) {
        if (!passes(ofLightness(end))) {
            continue;
        }
        double failing = oklch[0];
        double passing = end;
        while (std::abs(passing - failing) > precision) {
            const double middle = (failing + passing) / 2;
            (passes(ofLightness(middle)) ? passing : failing) = middle;
        }
        if (!nearest || std::abs(passing - oklch[0]) < std::abs(*nearest - oklch[0])) {
            nearest = passing;
        }
    }
    return nearest ? std::optional(ofLightness(*nearest)) : std::nullopt;
}

} // namespace tintwick
