#pragma once

#include "CapturedColor.h"

#include <array>

namespace tintwick {

/// Cyan, magenta, yellow and black, 0 to 1.
[[nodiscard]] CapturedColor colorFromCmyk(const std::array<double, 4>& cmyk);
/// Hue in degrees, saturation and brightness 0 to 1.
[[nodiscard]] CapturedColor colorFromHsb(const std::array<double, 3>& hsb);
/// CIE Lab for D50, lightness 0 to 100. A colour outside sRGB becomes the nearest inside.
[[nodiscard]] CapturedColor colorFromLab(const std::array<double, 3>& lab);

} // namespace tintwick
