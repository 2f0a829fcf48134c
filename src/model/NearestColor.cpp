#include "NearestColor.h"

#include "CapturedColor.h"

#include <algorithm>
#include <array>
#include <limits>

namespace tintwick {

namespace {

constexpr std::size_t blockSize = 64;

/// Uses eight independent lanes, because in a single chain each comparison waits for the one before.
double smallestOf(const std::array<double, blockSize>& values)
{
    // NOLINTNEXTLINE(cppcoreguidelines-pro-type-member-init): the next line fills it
    std::array<double, 8> lanes;
    std::copy_n(values.begin(), lanes.size(), lanes.begin());
    for (std::size_t i = lanes.size(); i < values.size(); i += lanes.size()) {
        for (std::size_t lane = 0; lane < lanes.size(); ++lane) {
            lanes[lane] = values[i + lane] < lanes[lane] ? values[i + lane] : lanes[lane];
        }
    }
    return *std::ranges::min_element(lanes);
}

} // namespace

std::optional<std::size_t> nearestColor(const ColorColumns& table, const CapturedColor& color)
{
    const std::size_t count = table.red.size();
    if (count == 0) {
        return std::nullopt;
    }

    const double red = color.red * 255;
    const double green = color.green * 255;
    const double blue = color.blue * 255;

    // The distances of a block do not depend on each other, so the compiler computes them in vector
    // registers. Only a block with a smaller distance than all before is searched for the first row with that
    // distance.
    // NOLINTNEXTLINE(cppcoreguidelines-pro-type-member-init): every block is written before it is read
    std::array<double, blockSize> distances;
    std::size_t best = 0;
    double bestDistance = std::numeric_limits<double>::infinity();
    for (std::size_t start = 0; start < count; start += blockSize) {
        const std::size_t length = std::min(blockSize, count - start);
        for (std::size_t i = 0; i < length; ++i) {
            const double redDifference = table.red[start + i] - red;
            const double greenDifference = table.green[start + i] - green;
            const double blueDifference = table.blue[start + i] - blue;
            distances[i] = redDifference * redDifference + greenDifference * greenDifference +
                           blueDifference * blueDifference;
        }
        std::fill(distances.begin() + static_cast<std::ptrdiff_t>(length), distances.end(),
                  std::numeric_limits<double>::infinity());

        const double smallest = smallestOf(distances);
        if (smallest < bestDistance) {
            bestDistance = smallest;
            best =
                start + static_cast<std::size_t>(std::ranges::find(distances, smallest) - distances.begin());
        }
    }
    return best;
}

} // namespace tintwick
