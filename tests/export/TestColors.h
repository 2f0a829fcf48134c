#pragma once

#include "CapturedColor.h"

#include <QString>

#include <optional>

namespace tintwick::test {

/// Makes a colour from a number such as 0x3B82F6.
[[nodiscard]] inline CapturedColor rgb(unsigned value, const std::optional<QString>& name = {},
                                       double alpha = 1)
{
    const auto component = [value](unsigned shift) { return ((value >> shift) & 0xffU) / 255.0; };
    CapturedColor color = CapturedColor::capture(component(16), component(8), component(0), alpha);
    color.customName = name;
    return color;
}

} // namespace tintwick::test
