#pragma once

#include "ColorSpaces.h"

#include <QStringView>

#include <optional>

namespace tintwick {

/// A colour that was written as text.
struct CssColor
{
    /// sRGB, 0 to 1.
    Components srgb{};
    double alpha = 1;
    /// The written colour is outside sRGB; `srgb` is the nearest that keeps its lightness and hue.
    bool isGamutMapped = false;
};

/// Reads one colour in any form of the CSS Color Module Level 4: hexadecimal, rgb(), hsl(), hwb(), lab(), lch(), oklab(),
/// oklch(), color() with a predefined space, a named colour or "transparent". White space around it is allowed. Returns
/// nothing for any other text, also for a system colour, "currentcolor" and calc().
[[nodiscard]] std::optional<CssColor> parseCssColor(QStringView text);

} // namespace tintwick
