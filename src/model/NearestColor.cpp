#include "model/NearestColor.h"

#include "model/CapturedColor.h"

#include <algorithm>
#include <array>

namespace tintwick {

std::optional<std::size_t> nearestColor(const ColorColumns& table, const CapturedColor& color)
{
    const std::size_t count = table.red.size();
    if (count == 0)
        return std::nullopt;

    const double red = color.red * 255;
    const double green = color.green * 255;
    const double blue = color.blue * 255;

    // The distances are kept apart from the search for the smallest: the first loop has no order to keep, so
    // the compiler turns it into vector instructions; the second one holds the rule that the first of equals
    // wins.
    constexpr std::size_t blockSize = 64;
    std::array<double, blockSize> distances;
    std::size_t best = 0;
    double bestDistance = 0;
    for (std::size_t start = 0; start < count; start += blockSize) {
        const std::size_t length = std::min(blockSize, count - start);
        for (std::size_t i = 0; i < length; ++i) {
            const double redDifference = table.red[start + i] - red;
            const double greenDifference = table.green[start + i] - green;
            const double blueDifference = table.blue[start + i] - blue;
            distances[i] = redDifference * redDifference + greenDifference * greenDifference +
                           blueDifference * blueDifference;
        }
        for (std::size_t i = 0; i < length; ++i) {
            if (distances[i] < bestDistance || start + i == 0) {
                bestDistance = distances[i];
                best = start + i;
            }
        }
    }
    return best;
}

} // namespace tintwick
