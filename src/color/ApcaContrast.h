#pragma once

#include "ColorSpaces.h"

namespace tintwick {

/// The lightness contrast Lc of a text on a ground, by the Accessible Perceptual Contrast Algorithm (APCA) 0.1.9 with the
/// constants 0.98G-4g that its author, A. Somers, published for the W3C. Positive for dark text on a lighter ground, up to
/// 106; negative for light text on a darker ground, down to -108; 0 for a contrast too low to be seen. Components are sRGB,
/// 0 to 1.
[[nodiscard]] double lightnessContrast(const Components& text, const Components& ground);

} // namespace tintwick
