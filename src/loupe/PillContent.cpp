#include "PillContent.h"

#include "CapturedColor.h"
#include "ColorNames.h"

#include <algorithm>

namespace tintwick {

namespace {

/// The weights of Rec. 709 luminance, on the components as they are, without linearization.
double luminance(const SampledColor& color)
{
    return 0.2126 * color.red + 0.7152 * color.green + 0.0722 * color.blue;
}

} // namespace

PillContent PillContent::of(const SampledColor& color)
{
    // Undoing a premultiplication that was not one can give more than 1.
    const auto bounded = [](double component) { return std::clamp(component, 0.0, 1.0); };
    const auto byte = [&](double component) { return static_cast<unsigned>(bounded(component) * 255); };
    // Only the components count for the name; a whole capture would cost a random identity with every frame.
    CapturedColor unnamed;
    unnamed.red = bounded(color.red);
    unnamed.green = bounded(color.green);
    unnamed.blue = bounded(color.blue);
    return {.hex = QString::asprintf("%02X%02X%02X", byte(color.red), byte(color.green), byte(color.blue)),
            .name = ColorNames::shared().nearest(unnamed),
            .tone = luminance(color) > 0.45 ? PillTone::LightBackground : PillTone::DarkBackground};
}

} // namespace tintwick
