#pragma once

#include <algorithm>

// The zoom of the loupe is its sampling radius: how many pixels it shows on each side of the centre one. The smaller
// the radius, the larger each pixel is drawn.

namespace tintwick::zoomradius {

/// The range of the user's zoom: 7 × 7 to 31 × 31 pixels.
inline constexpr int minimum = 3, maximum = 15;

/// A stored preference may exceed that range. This maximum limits the memory for the grid; the largest loupe has far
/// fewer pixels.
inline constexpr int maximumAtStart = 500;

[[nodiscard]] constexpr int atStart(int preferred)
{
    return std::min(preferred, maximumAtStart);
}

/// The radius after that many steps; positive steps zoom in.
[[nodiscard]] constexpr int zoomedBy(int radius, int steps)
{
    return std::clamp(radius - steps, minimum, maximum);
}

} // namespace tintwick::zoomradius
