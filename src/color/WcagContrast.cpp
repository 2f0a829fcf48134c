#include "WcagContrast.h"

#include <algorithm>

namespace tintwick {

double relativeLuminance(const Components& srgb)
{
    const Components linear = linearFromSrgb(srgb);
    return 0.2126 * linear[0] + 0.7152 * linear[1] + 0.0722 * linear[2];
}

double contrastRatio(const Components& one, const Components& other)
{
    // The light that a screen reflects.
    constexpr double flare = 0.05;
    const auto [darker, lighter] = std::minmax({relativeLuminance(one), relativeLuminance(other)});
    return (lighter + flare) / (darker + flare);
}

} // namespace tintwick
