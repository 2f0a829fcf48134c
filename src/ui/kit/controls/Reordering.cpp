#include "Reordering.h"

#include <algorithm>
#include <cmath>

namespace tintwick {

namespace {

constexpr double edge = 36;
constexpr double fastest = 900;

} // namespace

double carriedTop(double wanted, int rowHeight, qsizetype count)
{
    return std::clamp(wanted, 0.0, static_cast<double>(std::max<qsizetype>(count - 1, 0)) * rowHeight);
}

qsizetype gapUnder(double carriedTop, int rowHeight, qsizetype count)
{
    const auto nearest = static_cast<qsizetype>(std::floor(carriedTop / rowHeight + 0.5));
    return std::clamp<qsizetype>(nearest, 0, std::max<qsizetype>(count - 1, 0));
}

qsizetype slotBeside(qsizetype row, qsizetype carried, qsizetype gap)
{
    if (row > carried && row <= gap) {
        return row - 1;
    }
    if (row < carried && row >= gap) {
        return row + 1;
    }
    return row;
}

qsizetype destination(qsizetype carried, qsizetype gap)
{
    return gap > carried ? gap + 1 : gap;
}

double edgeScrollSpeed(double pointer, double top, double bottom)
{
    // In a low viewport the two zones leave half of it free.
    const double zone = std::min(edge, (bottom - top) / 4);
    const double above = std::clamp((top + zone - pointer) / zone, 0.0, 1.0);
    const double below = std::clamp((pointer - (bottom - zone)) / zone, 0.0, 1.0);
    return (below - above) * fastest;
}

} // namespace tintwick
