#pragma once

#include <QImage>
#include <QRect>
#include <QRgb>

namespace tintwick {

/// The opaque colour of the test picture at (x, y). Within 4096 × 4096 pixels no colour comes twice, so a
/// pixel read one place off is always seen as wrong.
[[nodiscard]] constexpr QRgb patternPixel(int x, int y)
{
    // Multiplying by an odd number is one-to-one modulo 2^24.
    const auto position = (static_cast<unsigned>(x) & 0xfffU) | ((static_cast<unsigned>(y) & 0xfffU) << 12U);
    return 0xff000000U | ((position * 0x9e3779U) & 0xffffffU);
}

/// The part of the test picture that lies in the rectangle.
[[nodiscard]] QImage patternImage(const QRect& rect);

} // namespace tintwick
