#pragma once

#include "ColorSpaces.h"

#include <optional>

namespace tintwick {

// Contrast by the Web Content Accessibility Guidelines 2.2. Components are sRGB, 0 to 1.

/// 0 for black, 1 for white: "relative luminance" of the guidelines, with 0.04045 as the end of the linear part, which is
/// the value of the sRGB standard.
[[nodiscard]] double relativeLuminance(const Components& srgb);

/// From 1 for equal luminances to 21 for black and white: "contrast ratio" of the guidelines. The order does not matter.
[[nodiscard]] double contrastRatio(const Components& one, const Components& other);

/// Large text has at least 18 pt, or 14 pt in bold. Graphics include the outlines of controls.
enum class ContrastUse { NormalText, LargeText, Graphics };
enum class ContrastLevel { AA, AAA };

/// The least ratio that a level demands: success criteria 1.4.3, 1.4.6 and 1.4.11. Nothing for graphics at level AAA, for
/// which there is no criterion.
[[nodiscard]] constexpr std::optional<double> requiredRatio(ContrastUse use, ContrastLevel level)
{
    switch (use) {
    case ContrastUse::NormalText:
        return level == ContrastLevel::AA ? 4.5 : 7;
    case ContrastUse::LargeText:
        return level == ContrastLevel::AA ? 3 : 4.5;
    case ContrastUse::Graphics:
        break;
    }
    return level == ContrastLevel::AA ? std::optional(3.0) : std::nullopt;
}

} // namespace tintwick
