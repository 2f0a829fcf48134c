#pragma once

#include "ColorSpaces.h"

namespace tintwick {

/// Whether all components are 0 to 1, apart from rounding errors.
[[nodiscard]] bool isInGamut(const Components& srgb);

/// The sRGB colour, 0 to 1, that stands for a colour outside the gamut: its OKLCH chroma is reduced until clipping the
/// rest is not visible. This is the binary search with local minimum of the CSS Color Module Level 4. A colour inside
/// the gamut stays as it is.
[[nodiscard]] Components gamutMapped(const Components& xyzD65);

} // namespace tintwick
