#include "AdobeColors.h"

#include "ColorSpaces.h"
#include "GamutMapping.h"

namespace tintwick {

CapturedColor colorFromCmyk(const std::array<double, 4>& cmyk)
{
    const auto component = [&cmyk](double ink) { return (1 - ink) * (1 - cmyk.back()); };
    return CapturedColor::capture(component(cmyk[0]), component(cmyk[1]), component(cmyk[2]), 1);
}

CapturedColor colorFromHsb(const std::array<double, 3>& hsb)
{
    const auto& [hue, saturation, brightness] = hsb;
    // The same colour in HWB.
    const auto [red, green, blue] = srgbFromHwb({hue, brightness * (1 - saturation), 1 - brightness});
    return CapturedColor::capture(red, green, blue, 1);
}

CapturedColor colorFromLab(const std::array<double, 3>& lab)
{
    const auto [red, green, blue] = gamutMapped(xyzD65FromLab(lab));
    return CapturedColor::capture(red, green, blue, 1);
}

} // namespace tintwick
