#pragma once

#include <QRgb>

#include <cmath>

namespace tintwick {

/// Whether black contrasts with the opaque colour at least as much as white, by the contrast ratio of WCAG 2. The
/// stronger of both always reaches 4.58 : 1.
[[nodiscard]] inline bool blackContrastsMore(QRgb color)
{
    const auto linear = [](int byte) {
        const double value = byte / 255.0;
        return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
    };
    const double luminance =
        0.2126 * linear(qRed(color)) + 0.7152 * linear(qGreen(color)) + 0.0722 * linear(qBlue(color));
    // Both ratios are equal where (luminance + 0.05)² = 1.05 × 0.05.
    return luminance >= 0.17912878474779;
}

[[nodiscard]] inline QRgb strongestContrast(QRgb color)
{
    return blackContrastsMore(color) ? qRgb(0, 0, 0) : qRgb(255, 255, 255);
}

} // namespace tintwick
