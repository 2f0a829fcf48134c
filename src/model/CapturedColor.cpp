#include "CapturedColor.h"

#include <QtGlobal>

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>

namespace tintwick {

namespace {

double clampedComponent(double value)
{
    // NaN becomes 0, because its comparisons are false.
    if (!(value > 0)) {
        return 0;
    }
    return value > 1 ? 1 : value;
}

void requireFinite(double component)
{
    if (!std::isfinite(component)) {
        qFatal("A colour component is not a finite number");
    }
}

/// Rounds half away from zero. The result is limited to int, because a component from a file may have any size.
int roundedInt(double value)
{
    if (std::isnan(value)) {
        return 0;
    }
    constexpr double lowest = std::numeric_limits<int>::min();
    constexpr double highest = std::numeric_limits<int>::max();
    return static_cast<int>(std::clamp(std::round(value), lowest, highest));
}

int byteValue(double component)
{
    requireFinite(component);
    return roundedInt(component * 255);
}

QString hexPair(double component)
{
    return QString::number(static_cast<uint>(byteValue(component)), 16).toUpper().rightJustified(2, u'0');
}

QString rgbList(const CapturedColor& color)
{
    return QStringLiteral("%1, %2, %3")
        .arg(byteValue(color.red))
        .arg(byteValue(color.green))
        .arg(byteValue(color.blue));
}

QString hslList(const CapturedColor& color)
{
    const Hsl hsl = color.hsl();
    return QStringLiteral("%1, %2%, %3%").arg(hsl.hue).arg(hsl.saturation).arg(hsl.lightness);
}

QString alphaText(double alpha)
{
    requireFinite(alpha);
    // std::to_chars() rounds the exact value with ties to even, like printf(); Qt's conversion rounds ties up.
    constexpr std::size_t longestFixed = std::numeric_limits<double>::max_exponent10 + 6;
    std::array<char, longestFixed> text{};
    const auto [end, error] =
        std::to_chars(text.data(), text.data() + text.size(), alpha, std::chars_format::fixed, 2);
    Q_ASSERT(error == std::errc());
    return QString::fromLatin1(text.data(), end - text.data());
}

} // namespace

CapturedColor CapturedColor::capture(double red, double green, double blue, double alpha)
{
    return {QUuid::createUuid(),
            clampedComponent(red),
            clampedComponent(green),
            clampedComponent(blue),
            clampedComponent(alpha),
            QDateTime::currentDateTimeUtc(),
            std::nullopt};
}

CapturedColor CapturedColor::capture(std::uint32_t rgb)
{
    constexpr double brightest = 255;
    const auto component = [rgb](unsigned shift) { return ((rgb >> shift) & 0xFF) / brightest; };
    return capture(component(16), component(8), component(0), 1);
}

QString CapturedColor::hex6() const
{
    return u'#' + hexPair(red) + hexPair(green) + hexPair(blue);
}

QString CapturedColor::hex8() const
{
    return hex6() + hexPair(alpha);
}

QString CapturedColor::cssRGB() const
{
    return QStringLiteral("rgb(%1)").arg(rgbList(*this));
}

QString CapturedColor::cssRGBA() const
{
    return QStringLiteral("rgba(%1, %2)").arg(rgbList(*this), alphaText(alpha));
}

Hsl CapturedColor::hsl() const
{
    for (const double component : {red, green, blue}) {
        requireFinite(component);
    }

    const double max = std::max({red, green, blue});
    const double min = std::min({red, green, blue});
    const double delta = max - min;
    const double lightness = (max + min) * 0.5;
    if (delta == 0) {
        return {0, 0, roundedInt(lightness * 100)};
    }

    double sextant = 0;
    if (red == max) {
        sextant = std::fmod((green - blue) / delta, 6);
    } else if (green == max) {
        sextant = (blue - red) / delta + 2;
    } else {
        sextant = (red - green) / delta + 4;
    }
    double hue = sextant * 60;
    if (hue < 0) {
        hue += 360;
    }

    // Very near to black or white, the range is lost in rounding, and the saturation counts as 0.
    const double range = 1 - std::abs(2 * lightness - 1);
    const double saturation = range == 0 ? 0 : delta / range;
    return {roundedInt(hue), roundedInt(saturation * 100), roundedInt(lightness * 100)};
}

QString CapturedColor::cssHSL() const
{
    return QStringLiteral("hsl(%1)").arg(hslList(*this));
}

QString CapturedColor::cssHSLA() const
{
    return QStringLiteral("hsla(%1, %2)").arg(hslList(*this), alphaText(alpha));
}

size_t qHash(const CapturedColor& color, size_t seed) noexcept
{
    return qHashMulti(seed, color.id, color.red, color.green, color.blue, color.alpha, color.capturedAt,
                      color.customName.has_value(), color.customName.value_or(QString()));
}

} // namespace tintwick
