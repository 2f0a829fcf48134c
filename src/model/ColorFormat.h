#pragma once

#include "ColorTemplate.h"

#include <QString>

#include <array>
#include <optional>

namespace tintwick {

struct CapturedColor;

/// The text formats of a colour.
enum class ColorFormat {
    Hex6,
    Hex8,
    Rgb,
    Rgba,
    Hsl,
    Hsla,
    CssVar,
    Tailwind,
    ColorName,
    // Every version of the data file knows those before; see isKnownToAllVersions().
    Oklch,
    ModernRgb,
    Hsv,
    NaiveCmyk,
    LowerHex,
    BareHex,
    Argb,
    Floats,
    Template
};

/// In the order of the menus.
inline constexpr std::array allColorFormats{
    ColorFormat::Hex6,      ColorFormat::Hex8,     ColorFormat::Rgb,       ColorFormat::Rgba,
    ColorFormat::Hsl,       ColorFormat::Hsla,     ColorFormat::CssVar,    ColorFormat::Tailwind,
    ColorFormat::ColorName, ColorFormat::Oklch,    ColorFormat::ModernRgb, ColorFormat::Hsv,
    ColorFormat::NaiveCmyk, ColorFormat::LowerHex, ColorFormat::BareHex,   ColorFormat::Argb,
    ColorFormat::Floats,    ColorFormat::Template};

/// The first nine formats. A version that has only these refuses a data file whose default format is another.
[[nodiscard]] constexpr bool isKnownToAllVersions(ColorFormat format)
{
    return format <= ColorFormat::ColorName;
}

/// The name of a format, stored and shown, for example "HEX+A".
[[nodiscard]] QString rawValue(ColorFormat format);

/// The format with exactly this name, or none.
[[nodiscard]] std::optional<ColorFormat> colorFormatFromRawValue(QStringView text);

/// The text of a colour in a format. `varName` is the CSS variable of a colour without a name, and `ownTemplate` is filled for
/// the format Template.
[[nodiscard]] QString string(ColorFormat format, const CapturedColor& color,
                             const QString& varName = QStringLiteral("color"),
                             const QString& ownTemplate = defaultColorTemplate());

} // namespace tintwick
