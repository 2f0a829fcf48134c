#pragma once

#include <QImage>

#include <vector>

namespace tintwick {

/// An image with an opening that shows live colours. The layers below and above the opening never change. They are
/// combined once into two bytes per channel: the weight of the live colour and the constant that is added.
class LoupeStencil final
{
public:
    /// Combines the given part of three images of equal size: `below` and `above` (premultiplied ARGB32), and `opening`
    /// (Alpha8) between them, the share of the live colour in each pixel.
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
