#include "ComponentTrack.h"

#include "EditableColor.h"

namespace tintwick {

namespace {

constexpr int steps = 96;
/// Much less than a pixel of any track.
constexpr double precision = 1e-5;

EditableColor colorAt(const EditableColor& color, ColorComponent component, double fraction)
{
    EditableColor result = color;
    result.setValue(component, fraction * maximumOf(component));
    return result;
}

/// Where the track crosses the limit of the gamut between two fractions on different sides of it.
double limitBetween(const EditableColor& color, ColorComponent component, double from, double to)
{
    const bool startsOutside = colorAt(color, component, from).isOutsideGamut();
    while (to - from > precision) {
        const double middle = (from + to) / 2;
        if (colorAt(color, component, middle).isOutsideGamut() == startsOutside) {
            from = middle;
        } else {
            to = middle;
        }
    }
    return (from + to) / 2;
}

} // namespace

ComponentTrack trackOf(const EditableColor& color, ColorComponent component)
{
    ComponentTrack track;
    bool wasOutside = false;
    for (int step = 0; step <= steps; ++step) {
        const double fraction = static_cast<double>(step) / steps;
        const EditableColor here = colorAt(color, component, fraction);
        track.colors.push_back(here.srgb());
        const bool isOutside = here.isOutsideGamut();
        if (isOutside != wasOutside) {
            const double limit =
                step == 0 ? 0
                          : limitBetween(color, component, static_cast<double>(step - 1) / steps, fraction);
            if (isOutside) {
                track.outside.push_back({limit, 1});
            } else {
                track.outside.back().to = limit;
            }
        }
        wasOutside = isOutside;
    }
    return track;
}

} // namespace tintwick
