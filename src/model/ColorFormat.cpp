#include "ColorFormat.h"

#include "CapturedColor.h"
#include "ColorNames.h"
#include "ColorNumbers.h"
#include "Slug.h"
#include "TailwindColors.h"

#include <cmath>

namespace tintwick {

namespace {

/// At most this many decimals, and no zero at the end.
QString shortest(double number, int decimals)
{
    QString text = QString::number(number, 'f', decimals);
    while (text.contains(u'.') && (text.endsWith(u'0') || text.endsWith(u'.'))) {
        text.chop(1);
    }
    return text;
}

/// " / 50%" for a translucent colour.
QString opacity(const ColorNumbers& numbers)
{
    constexpr double percent = 100;
    return numbers.alpha == 1 ? QString()
                              : QStringLiteral(" / %1%").arg(shortest(numbers.alpha * percent, 2));
}

QString oklchText(const ColorNumbers& numbers)
{
    constexpr double percent = 100;
    // The decimals give back every colour of eight bits.
    const auto& [lightness, chroma, hue] = numbers.oklch;
    return QStringLiteral("oklch(%1% %2 %3%4)")
        .arg(shortest(lightness * percent, 3), shortest(chroma, 5), shortest(hue, 3), opacity(numbers));
}

QString modernRgbText(const ColorNumbers& numbers)
{
    constexpr double brightest = 255;
    const auto& [red, green, blue] = numbers.rgb;
    const auto byte = [](double component) { return QString::number(std::lround(component * brightest)); };
    return QStringLiteral("rgb(%1 %2 %3%4)").arg(byte(red), byte(green), byte(blue), opacity(numbers));
}

} // namespace

QString rawValue(ColorFormat format)
{
    switch (format) {
    case ColorFormat::Hex6:
        return QStringLiteral("HEX");
    case ColorFormat::Hex8:
        return QStringLiteral("HEX+A");
    case ColorFormat::Rgb:
        return QStringLiteral("RGB");
    case ColorFormat::Rgba:
        return QStringLiteral("RGBA");
    case ColorFormat::Hsl:
        return QStringLiteral("HSL");
    case ColorFormat::Hsla:
        return QStringLiteral("HSLA");
    case ColorFormat::CssVar:
        return QStringLiteral("CSS Var");
    case ColorFormat::Tailwind:
        return QStringLiteral("Tailwind");
    case ColorFormat::ColorName:
        return QStringLiteral("Name");
    case ColorFormat::Oklch:
        return QStringLiteral("OKLCH");
    case ColorFormat::ModernRgb:
        return QStringLiteral("RGB modern");
    case ColorFormat::Hsv:
        return QStringLiteral("HSV");
    case ColorFormat::NaiveCmyk:
        return QStringLiteral("CMYK naive");
    case ColorFormat::LowerHex:
        return QStringLiteral("HEX lower");
    case ColorFormat::BareHex:
        return QStringLiteral("HEX bare");
    case ColorFormat::Argb:
        return QStringLiteral("0xAARRGGBB");
    case ColorFormat::Floats:
        return QStringLiteral("Floats");
    case ColorFormat::Template:
        return QStringLiteral("Template");
    }
    Q_UNREACHABLE();
}

std::optional<ColorFormat> colorFormatFromRawValue(QStringView text)
{
    for (const ColorFormat format : allColorFormats) {
        if (rawValue(format) == text) {
            return format;
        }
    }
    return std::nullopt;
}

QString string(ColorFormat format, const CapturedColor& color, const QString& varName,
               const QString& ownTemplate)
{
    switch (format) {
    case ColorFormat::Hex6:
        return color.hex6();
    case ColorFormat::Hex8:
        return color.alpha < 1 ? color.hex8() : color.hex6();
    case ColorFormat::Rgb:
        return color.cssRGB();
    case ColorFormat::Rgba:
        return color.cssRGBA();
    case ColorFormat::Hsl:
        return color.cssHSL();
    case ColorFormat::Hsla:
        return color.cssHSLA();
    case ColorFormat::CssVar: {
        const QString name = color.customName ? slugify(*color.customName) : varName;
        return QStringLiteral("--") + name + QStringLiteral(": ") + color.hex6() + u';';
    }
    case ColorFormat::Tailwind:
        return TailwindColors::shared().nearest(color).value_or(color.hex6());
    case ColorFormat::ColorName:
        return color.customName ? *color.customName : ColorNames::shared().nearest(color);
    case ColorFormat::Oklch:
        return oklchText(ColorNumbers(color));
    case ColorFormat::ModernRgb:
        return modernRgbText(ColorNumbers(color));
    case ColorFormat::Hsv:
        return filledTemplate(QStringLiteral("hsv({h}, {sv}%, {v}%)"), color);
    case ColorFormat::NaiveCmyk:
        return filledTemplate(QStringLiteral("cmyk({c}%, {m}%, {y}%, {k}%)"), color);
    case ColorFormat::LowerHex:
        return filledTemplate(QStringLiteral("#{hex:x}"), color);
    case ColorFormat::BareHex:
        return filledTemplate(QStringLiteral("{hex}"), color);
    case ColorFormat::Argb:
        return filledTemplate(QStringLiteral("0x{a:02X}{hex}"), color);
    case ColorFormat::Floats:
        return filledTemplate(QStringLiteral("{rf}, {gf}, {bf}"), color);
    case ColorFormat::Template:
        return filledTemplate(ownTemplate, color);
    }
    Q_UNREACHABLE();
}

} // namespace tintwick
