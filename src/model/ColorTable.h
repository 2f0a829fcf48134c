#pragma once

#include "NearestColor.h"

#include <array>
#include <cstddef>
#include <cstdint>

namespace tintwick {

/// Storage for the columns of a table with `Size` rows, filled at compile time from 0xRRGGBB values.
template <std::size_t Size>
struct ColorTable
{
    std::array<double, Size> red{};
    std::array<double, Size> green{};
    std::array<double, Size> blue{};

    constexpr void setRow(std::size_t row, std::uint32_t rgb)
    {
        red[row] = (rgb >> 16) & 0xFF;
        green[row] = (rgb >> 8) & 0xFF;
        blue[row] = rgb & 0xFF;
    }

    [[nodiscard]] constexpr ColorColumns columns() const { return {red, green, blue}; }
};

} // namespace tintwick
