#pragma once

#include <QString>

#include <array>
#include <optional>

namespace tintwick {

struct CapturedColor;

/// The text formats of a colour.
enum class ColorFormat { Hex6, Hex8, Rgb, Rgba, Hsl, Hsla, CssVar, Tailwind, ColorName };

/// In the order of the menus.
inline constexpr std::array allColorFormats{
    ColorFormat::Hex6, ColorFormat::Hex8,   ColorFormat::Rgb,      ColorFormat::Rgba,     ColorFormat::Hsl,
    ColorFormat::Hsla, ColorFormat::CssVar, ColorFormat::Tailwind, ColorFormat::ColorName};

/// The name of a format, stored and shown, for example "HEX+A".
[[nodiscard]] QString rawValue(ColorFormat format);

/// The format with exactly this name, or none.
[[nodiscard]] std::optional<ColorFormat> colorFormatFromRawValue(QStringView text);

/// The text of a colour in a format. `varName` is the CSS variable of a colour without a name.
[[nodiscard]] QString string(ColorFormat format, const CapturedColor& color,
                             const QString& varName = QStringLiteral("color"));

} // namespace tintwick
