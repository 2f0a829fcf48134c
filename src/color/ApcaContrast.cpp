#include "ApcaContrast.h"

#include <cmath>
#include <cstddef>

namespace tintwick {

namespace {

/// The luminance on a screen, raised for colours near black, which the light around the screen brightens.
double screenLuminance(const Components& srgb)
{
    constexpr double transferExponent = 2.4;
    constexpr Components weights{0.2126729, 0.7151522, 0.0721750};
    double luminance = 0;
    for (std::size_t i = 0; i < srgb.size(); ++i) {
        luminance += weights.at(i) * std::pow(srgb.at(i), transferExponent);
    }
    constexpr double nearBlack = 0.022;
    constexpr double nearBlackExponent = 1.414;
    return luminance < nearBlack ? luminance + std::pow(nearBlack - luminance, nearBlackExponent) : luminance;
}

} // namespace

double lightnessContrast(const Components& text, const Components& ground)
{
    constexpr double leastDifference = 0.0005;
    constexpr double scale = 1.14;
    constexpr double leastContrast = 0.1;
    constexpr double offset = 0.027;

    const double textLuminance = screenLuminance(text);
    const double groundLuminance = screenLuminance(ground);
    if (std::abs(groundLuminance - textLuminance) < leastDifference) {
        return 0;
    }
    const bool isDarkText = groundLuminance > textLuminance;
    const double contrast =
        scale * (isDarkText ? std::pow(groundLuminance, 0.56) - std::pow(textLuminance, 0.57)
                            : std::pow(groundLuminance, 0.65) - std::pow(textLuminance, 0.62));
    if (std::abs(contrast) < leastContrast) {
        return 0;
    }
    return 100 * (isDarkText ? contrast - offset : contrast + offset);
}

} // namespace tintwick
