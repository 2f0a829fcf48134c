#pragma once

#include <QImage>
#include <QRect>
#include <QRgb>

namespace tintwick {

/// The opaque colour of the test picture at (x, y). All 4096 × 4096 pixels differ, so a
/// pixel read at a wrong position is always detected.
[[nodiscard]] constexpr QRgb patternPixel(int x, int y)
{
    // Multiplication by an odd number is a bijection modulo 2^24.
    const auto position = (static_cast<unsigned>(x) & 0xfffU) | ((static_cast<unsigned>(y) & 0xfffU) << 12U);
    return 0xff000000U | ((position * 0x9e3779U) & 0xffffffU);
}

/// The part of the test picture inside the rectangle.
[[nodiscard]] QImage patternImage(const QRect& rect);

} // namespace tintwick
