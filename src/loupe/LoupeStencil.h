#pragma once

#include <QImage>

#include <vector>

namespace tintwick {

/// A picture with an opening that shows live colours. What is below and above the opening never changes, so it is folded
/// once into two bytes per channel: the share of the live colour, and what is added to it.
class LoupeStencil final
{
public:
    /// The given part of three pictures of equal size, bottom to top: `below` and `above` premultiplied ARGB32, between
    /// them `opening` (Alpha8), the share of each pixel that shows the live colour.
    LoupeStencil(const QImage& below, const QImage& opening, const QImage& above, const QRect& part);

    [[nodiscard]] int width() const { return m_width; }

    /// Writes row `y`, counted from the top of the part, with the live colours in it. `live` and `out` hold width()
    /// opaque pixels.
    void composeRow(int y, const QRgb* live, QRgb* out) const;

private:
    [[nodiscard]] std::ptrdiff_t offset(int y) const { return static_cast<std::ptrdiff_t>(y) * m_width; }

    int m_width;
    /// The same byte in all four channels of a pixel.
    std::vector<QRgb> m_kept;
    std::vector<QRgb> m_added;
};

} // namespace tintwick
