#pragma once

#include <cstddef>
#include <optional>
#include <span>

namespace tintwick {

struct CapturedColor;

/// A table of colours, column by column so that a scan reads straight through memory. The components are on
/// the scale of 0 to 255; the three columns are equally long.
struct ColorColumns
{
    std::span<const double> red;
    std::span<const double> green;
    std::span<const double> blue;
};

/// The row at the smallest Euclidean distance from `color` in sRGB, or nothing when the table is empty. Of
/// equally near rows the first one is taken. Components are compared unrounded; alpha does not count.
[[nodiscard]] std::optional<std::size_t> nearestColor(const ColorColumns& table, const CapturedColor& color);

} // namespace tintwick
