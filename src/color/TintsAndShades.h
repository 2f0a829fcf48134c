#pragma once

#include "ColorSpaces.h"

#include <array>

namespace tintwick {

inline constexpr int tintCount = 5;

/// Five colours at equal steps between a colour and white, from near the colour to near white. sRGB, 0 to 1. The steps are
/// straight lines in Oklab, so they look equal; what leaves the gamut is mapped into it.
[[nodiscard]] std::array<Components, tintCount> tintsOf(const Components& srgb);
/// The same towards black.
[[nodiscard]] std::array<Components, tintCount> shadesOf(const Components& srgb);

} // namespace tintwick
