#pragma once

#include <array>

namespace tintwick {

/// Three components of a colour in some colour space.
using Components = std::array<double, 3>;

// Conversions between colour spaces. Matrices and transfer functions are those of the CSS Color Module Level 4. sRGB
// components are gamma encoded, 0 to 1 inside the gamut; values outside are kept, with the sign of the linear value. XYZ
// is relative to white: Y is 1 for white.

[[nodiscard]] Components linearFromSrgb(const Components& rgb);
[[nodiscard]] Components srgbFromXyzD65(const Components& xyz);
[[nodiscard]] Components xyzD65FromXyzD50(const Components& xyz);

[[nodiscard]] Components xyzD65FromLinearSrgb(const Components& rgb);
[[nodiscard]] Components xyzD65FromSrgb(const Components& rgb);
[[nodiscard]] Components xyzD65FromLinearDisplayP3(const Components& rgb);
[[nodiscard]] Components xyzD65FromDisplayP3(const Components& rgb);
[[nodiscard]] Components xyzD65FromA98Rgb(const Components& rgb);
[[nodiscard]] Components xyzD65FromProPhotoRgb(const Components& rgb);
[[nodiscard]] Components xyzD65FromRec2020(const Components& rgb);

/// CIE Lab for D50: lightness 0 to 100.
[[nodiscard]] Components xyzD65FromLab(const Components& lab);
/// Oklab: lightness 0 to 1.
[[nodiscard]] Components xyzD65FromOklab(const Components& oklab);
[[nodiscard]] Components oklabFromXyzD65(const Components& xyz);

/// Lightness, chroma and hue in degrees to lightness, a and b. The same for LCH and OKLCH.
[[nodiscard]] Components labFromLch(const Components& lch);
/// The hue is 0 to 360, and 0 for a colour without chroma.
[[nodiscard]] Components lchFromLab(const Components& lab);

/// Hue in degrees, saturation and lightness 0 to 1.
[[nodiscard]] Components srgbFromHsl(const Components& hsl);
/// Hue in degrees, whiteness and blackness 0 to 1. A sum of whiteness and blackness above 1 gives a grey.
[[nodiscard]] Components srgbFromHwb(const Components& hwb);

} // namespace tintwick
