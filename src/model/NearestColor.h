#pragma once

#include <cstddef>
#include <optional>
#include <span>

namespace tintwick {

struct CapturedColor;

/// A table of colours in three columns of equal length, so that a scan reads memory in order. Components are 0 to 255.
struct ColorColumns
{
    std::span<const double> red;
    std::span<const double> green;
    std::span<const double> blue;
};

/// The row at the smallest Euclidean distance from `color` in sRGB, the first of equally near ones; none when the table is
/// empty. Components are not rounded. Ignores alpha.
[[nodiscard]] std::optional<std::size_t> nearestColor(const ColorColumns& table, const CapturedColor& color);

} // namespace tintwick
