#pragma once

#include <QString>

#include <optional>

namespace tintwick {

struct CapturedColor;

// Texts with fields in braces, for example "{name}: #{hex}" or "{r} {g:02x} {h:.1}". "{{" and "}}" stand for single braces.
//
// Fields:   r g b       0 to 255
//           rf gf bf a  0 to 1
//           h s l       HSL: degrees, percent
//           sv v        saturation and value of HSV in percent
//           c m y k     percent
//           L C H       OKLCH: 0 to 1, chroma, degrees
//           hex name slug tailwind
// A number may be followed by ":", "0", a width, "." and the count of decimals, and "x" or "X", which writes r, g, b, a and rf,
// gf, bf as a hexadecimal number of 0 to 255. Of the texts, hex takes "x" for lower case.

/// The template of a user who has written none.
[[nodiscard]] QString defaultColorTemplate();
/// The template with the values of a colour. A field that is not valid stays as it is written.
[[nodiscard]] QString filledTemplate(const QString& text, const CapturedColor& color);
/// The first field that is not valid, with its braces, or a brace without its partner; none when all is well.
[[nodiscard]] std::optional<QString> invalidTemplatePart(const QString& text);

} // namespace tintwick
