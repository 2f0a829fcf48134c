#pragma once

#include "ColorSpaces.h"

#include <optional>

namespace tintwick {

/// The components as a screen with 8 bits per component shows them.
[[nodiscard]] Components roundedTo8Bits(const Components& srgb);

/// The colour that has at least `ratio` of contrast to `ground` (see contrastRatio()), the hue and chroma of `foreground` in
/// OKLCH, and the lightness nearest to its own, be it darker or lighter. Its chroma is less where the gamut demands it. All
/// colours are sRGB, 0 to 1; the result is rounded to 8 bits and has the contrast after that. `foreground` itself when it
/// has the contrast; nothing when no lightness has.
[[nodiscard]] std::optional<Components> nearestPassing(const Components& foreground, const Components& ground,
                                                       double ratio);

} // namespace tintwick
