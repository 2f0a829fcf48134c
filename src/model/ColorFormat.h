#pragma once

#include <QString>

#include <array>
#include <optional>

namespace tintwick {

struct CapturedColor;

/// The forms in which a colour is copied and shown.
enum class ColorFormat { Hex6, Hex8, Rgb, Rgba, Hsl, Hsla, CssVar, Tailwind, ColorName };

/// In the order in which they are offered.
inline constexpr std::array allColorFormats{
    ColorFormat::Hex6, ColorFormat::Hex8,   ColorFormat::Rgb,      ColorFormat::Rgba,     ColorFormat::Hsl,
    ColorFormat::Hsla, ColorFormat::CssVar, ColorFormat::Tailwind, ColorFormat::ColorName};

/// The text under which a format is both stored and shown, for example "HEX+A".
[[nodiscard]] QString rawValue(ColorFormat format);

/// The format stored as exactly this text, or nothing.
[[nodiscard]] std::optional<ColorFormat> colorFormatFromRawValue(QStringView text);

/// The text of a colour in a format. `varName` names the CSS variable of a colour that has no name of its
/// own.
[[nodiscard]] QString string(ColorFormat format, const CapturedColor& color,
                             const QString& varName = QStringLiteral("color"));

} // namespace tintwick
