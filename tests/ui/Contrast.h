#pragma once

#include <QColor>

#include <algorithm>
#include <cmath>

namespace tintwick::test {

/// Web Content Accessibility Guidelines 2.1, "relative luminance".
inline double luminance(const QColor& color)
{
    const auto linear = [](double c) {
        return c <= 0.03928 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

/// The same guidelines, "contrast ratio": from 1 to 21.
inline double contrast(const QColor& one, const QColor& other)
{
    const double a = luminance(one);
    const double b = luminance(other);
    return (std::max(a, b) + 0.05) / (std::min(a, b) + 0.05);
}

/// A translucent colour painted on an opaque one.
inline QColor painted(const QColor& color, const QColor& ground)
{
    const auto part = [alpha = color.alphaF()](float above, float below) {
        return above * alpha + below * (1 - alpha);
    };
    return QColor::fromRgbF(part(color.redF(), ground.redF()), part(color.greenF(), ground.greenF()),
                            part(color.blueF(), ground.blueF()));
}

} // namespace tintwick::test
