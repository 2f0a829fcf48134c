#include "TextOnColor.h"

#include "CapturedColor.h"
#include "WcagContrast.h"

#include <algorithm>
#include <cmath>

namespace tintwick {

namespace {

/// The mean of the two colours of a checkerboard.
constexpr double checkerboard = 0.875;

} // namespace

theme::Color textOn(const CapturedColor& color)
{
    const auto seen = [&](double component) {
        return std::lerp(checkerboard, std::clamp(component, 0.0, 1.0), std::clamp(color.alpha, 0.0, 1.0));
    };
    const Components ground{seen(color.red), seen(color.green), seen(color.blue)};
    return contrastRatio({0, 0, 0}, ground) > contrastRatio({1, 1, 1}, ground) ? theme::black : theme::white;
}

} // namespace tintwick
