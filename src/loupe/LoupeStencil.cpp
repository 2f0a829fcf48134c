#include "LoupeStencil.h"

#include <algorithm>

namespace tintwick {

namespace {

/// x / 255, rounded, for 0 ≤ x ≤ 255 × 255.
constexpr unsigned dividedBy255(unsigned x)
{
    const unsigned rounded = x + 128;
    return (rounded + (rounded >> 8)) >> 8;
}

} // namespace

LoupeStencil::LoupeStencil(const QImage& below, const QImage& opening, const QImage& above, const QRect& part)
    : m_width(part.width())
{
    const auto count = static_cast<std::size_t>(part.width()) * static_cast<std::size_t>(part.height());
    m_kept.reserve(count);
    m_added.reserve(count);
    for (int y = part.top(); y <= part.bottom(); ++y) {
        const auto* belowRow = reinterpret_cast<const QRgb*>(below.constScanLine(y));
        const auto* aboveRow = reinterpret_cast<const QRgb*>(above.constScanLine(y));
        const uchar* openingRow = opening.constScanLine(y);
        for (int x = part.left(); x <= part.right(); ++x) {
            const QRgb base = belowRow[x];
            const QRgb top = aboveRow[x];
            const float clear = 1 - static_cast<float>(qAlpha(top)) / 255;
            const float open = static_cast<float>(openingRow[x]) / 255;
            const auto fixed = [&](int topChannel, int baseChannel) {
                return static_cast<float>(topChannel) + clear * (1 - open) * static_cast<float>(baseChannel);
            };
            const int kept = static_cast<int>(255 * clear * open + 0.5F);
            // The alpha of both shares is rounded together, so that an opaque pixel stays opaque.
            const float alpha = fixed(qAlpha(top), qAlpha(base)) + 255 * clear * open;
            const int addedAlpha = std::clamp(static_cast<int>(alpha + 0.5F) - kept, 0, 255 - kept);
            const auto added = [&](int topChannel, int baseChannel) {
                return std::min(static_cast<int>(fixed(topChannel, baseChannel) + 0.5F), addedAlpha);
            };
            m_kept.push_back(qRgba(kept, kept, kept, kept));
            m_added.push_back(qRgba(added(qRed(top), qRed(base)), added(qGreen(top), qGreen(base)),
                                    added(qBlue(top), qBlue(base)), addedAlpha));
        }
    }
}

void LoupeStencil::composeRow(int y, const QRgb* live, QRgb* out) const
{
    const auto* liveBytes = reinterpret_cast<const uchar*>(live);
    const auto* keptBytes = reinterpret_cast<const uchar*>(m_kept.data() + offset(y));
    const auto* addedBytes = reinterpret_cast<const uchar*>(m_added.data() + offset(y));
    auto* __restrict outBytes = reinterpret_cast<uchar*>(out);
    const int count = m_width * static_cast<int>(sizeof(QRgb));
    for (int i = 0; i < count; ++i) {
        outBytes[i] = static_cast<uchar>(addedBytes[i] + dividedBy255(unsigned{liveBytes[i]} * keptBytes[i]));
    }
}

} // namespace tintwick
