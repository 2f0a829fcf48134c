#include "TintsAndShades.h"

#include "GamutMapping.h"

#include <cmath>
#include <cstddef>

namespace tintwick {

namespace {

std::array<Components, tintCount> stepsTowards(const Components& endInOklab, const Components& srgb)
{
    const Components start = oklabFromXyzD65(xyzD65FromSrgb(srgb));
    std::array<Components, tintCount> steps{};
    for (std::size_t step = 0; step < steps.size(); ++step) {
        const double fraction = static_cast<double>(step + 1) / (tintCount + 1);
        const auto part = [&](std::size_t i) { return std::lerp(start.at(i), endInOklab.at(i), fraction); };
        steps.at(step) = gamutMapped(xyzD65FromOklab({part(0), part(1), part(2)}));
    }
    return steps;
}

} // namespace

std::array<Components, tintCount> tintsOf(const Components& srgb)
{
    return stepsTowards({1, 0, 0}, srgb);
}

std::array<Components, tintCount> shadesOf(const Components& srgb)
{
    return stepsTowards({0, 0, 0}, srgb);
}

} // namespace tintwick
