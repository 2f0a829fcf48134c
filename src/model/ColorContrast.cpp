#include "ColorContrast.h"

#include "ApcaContrast.h"
#include "PassingLightness.h"

#include <algorithm>

namespace tintwick {

namespace {

constexpr Components white{1, 1, 1};

/// Blends as screens do, in sRGB and not in light.
Components painted(const CapturedColor& color, const Components& ground)
{
    const double alpha = std::clamp(color.alpha, 0.0, 1.0);
    const Components above = roundedTo8Bits({color.red, color.green, color.blue});
    Components result{};
    std::ranges::transform(above, ground, result.begin(),
                           [alpha](double over, double under) { return over * alpha + under * (1 - alpha); });
    return roundedTo8Bits(result);
}

} // namespace

ColorContrast::ColorContrast(const CapturedColor& text, const CapturedColor& ground)
    : m_ground(painted(ground, white))
    , m_text(painted(text, m_ground))
{
}

bool ColorContrast::passes(ContrastUse use, ContrastLevel level) const
{
    const std::optional<double> required = requiredRatio(use, level);
    return required && ratio() >= *required;
}

double ColorContrast::lightness() const
{
    return lightnessContrast(m_text, m_ground);
}

std::optional<CapturedColor> ColorContrast::nearestPassing(ContrastLevel level) const
{
    const double required = *requiredRatio(ContrastUse::NormalText, level);
    const std::optional<Components> found = tintwick::nearestPassing(m_text, m_ground, required);
    return found ? std::optional(CapturedColor::capture((*found)[0], (*found)[1], (*found)[2], 1))
                 : std::nullopt;
}

CapturedColor strongestGround(const CapturedColor& text)
{
    const CapturedColor black = CapturedColor::capture(0x000000);
    const CapturedColor white = CapturedColor::capture(0xFFFFFF);
    return ColorContrast(text, black).ratio() > ColorContrast(text, white).ratio() ? black : white;
}

} // namespace tintwick
