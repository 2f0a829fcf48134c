#pragma once

#include "CapturedColor.h"

#include <QStringView>

#include <optional>

namespace tintwick {

/// Reads a colour in a notation that is not CSS but common in programs: "3B82F6" and "3B82F680" with the opacity last,
/// "0xFF3B82F6" with the opacity first and "0x3B82F6", "hsv(217, 76%, 96%)" or "hsb()", "cmyk(76%, 47%, 0%, 4%)" without a colour
/// profile, three whole numbers up to 255, and three numbers up to 1 of which one has a decimal point. Commas may be left
/// out between numbers. Returns nothing for any other text. The colour is captured now and has no name.
[[nodiscard]] std::optional<CapturedColor> colorFromNotation(QStringView text);

} // namespace tintwick
