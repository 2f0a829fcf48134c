#pragma once

#include "WcagContrast.h"

#include <QString>

namespace tintwick {

class ColorContrast;

// The texts of a contrast. A number is not rounded up to a limit that the contrast misses.

/// "4.87 : 1"
[[nodiscard]] QString ratioText(double ratio);
/// "4.5 : 1"
[[nodiscard]] QString limitText(double limit);
/// For screen readers: "4.87 to 1"
[[nodiscard]] QString spokenRatio(double ratio);
/// "Lc 63.1" or "Lc −68.5"
[[nodiscard]] QString lightnessText(double lightness);
/// What a lightness contrast of APCA suffices for: one sentence.
[[nodiscard]] QString lightnessAdvice(double lightness);
/// Of text of normal size: "passes AA, fails AAA"
[[nodiscard]] QString verdict(const ColorContrast& contrast);
/// "AA" or "AAA"
[[nodiscard]] QString levelName(ContrastLevel level);
/// "Normal text", "Large text" or "Graphics"
[[nodiscard]] QString useName(ContrastUse use);

} // namespace tintwick
