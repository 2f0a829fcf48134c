#include "ColorFormat.h"

#include "CapturedColor.h"
#include "ColorNames.h"
#include "Slug.h"
#include "TailwindColors.h"

namespace tintwick {

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

QString string(ColorFormat format, const CapturedColor& color, const QString& varName)
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
    }
    Q_UNREACHABLE();
}

} // namespace tintwick
