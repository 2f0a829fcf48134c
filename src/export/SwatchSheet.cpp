#include "SwatchSheet.h"

#include <algorithm>

namespace tintwick {

namespace {

constexpr int pitch = SwatchSheet::swatchSide + SwatchSheet::gap;

} // namespace

SwatchSheet::SwatchSheet(qsizetype count)
    : m_count(count)
{
}

QSize SwatchSheet::size() const
{
    const int count = static_cast<int>(m_count);
    const int columns = std::min(count, columnLimit);
    const int rows = (count + columnLimit - 1) / columnLimit;
    return {columns * pitch + gap, rows * pitch + gap};
}

QRect SwatchSheet::swatch(qsizetype position) const
{
    const int i = static_cast<int>(position);
    return {i % columnLimit * pitch + gap, i / columnLimit * pitch + gap, swatchSide, swatchSide};
}

} // namespace tintwick
