#include "EditableColor.h"

#include "CapturedColor.h"
#include "ColorNumbers.h"
#include "GamutMapping.h"

#include <algorithm>

namespace tintwick {

namespace {

/// Half a step of a component of 8 bits. Smaller differences come from rounding, and the hue from them has no meaning.
constexpr double halfStep = 0.5 / 255;

bool isGray(const Components& srgb)
{
    const auto [least, greatest] = std::ranges::minmax(srgb);
    return greatest - least < halfStep;
}

bool isBlackOrWhite(const Components& srgb)
{
    const auto [least, greatest] = std::ranges::minmax(srgb);
    return greatest < halfStep || least > 1 - halfStep;
}

ColorNumbers numbersOf(const Components& srgb)
{
    CapturedColor color;
    color.red = srgb[0];
    color.green = srgb[1];
    color.blue = srgb[2];
    return ColorNumbers(color);
}

} // namespace

EditableColor::EditableColor(const CapturedColor& color)
{
    setColor(color);
}

double EditableColor::value(ColorComponent component) const
{
    switch (component) {
    case ColorComponent::OklchLightness:
        return m_oklch[0];
    case ColorComponent::OklchChroma:
        return m_oklch[1];
    case ColorComponent::OklchHue:
        return m_oklch[2];
    case ColorComponent::HslHue:
        return m_hsl[0];
    case ColorComponent::HslSaturation:
        return m_hsl[1];
    case ColorComponent::HslLightness:
        return m_hsl[2];
    case ColorComponent::Alpha:
        break;
    }
    return m_alpha;
}

void EditableColor::setValue(ColorComponent component, double value)
{
    value = std::clamp(value, 0.0, maximumOf(component));
    if (this->value(component) == value) {
        return;
    }
    switch (component) {
    case ColorComponent::OklchLightness:
    case ColorComponent::OklchChroma:
    case ColorComponent::OklchHue:
        m_oklch.at(static_cast<std::size_t>(component)) = value;
        updateFromOklch();
        break;
    case ColorComponent::HslHue:
    case ColorComponent::HslSaturation:
    case ColorComponent::HslLightness:
        m_hsl.at(static_cast<std::size_t>(component) - m_oklch.size()) = value;
        updateFromHsl();
        break;
    case ColorComponent::Alpha:
        m_alpha = value;
        break;
    }
}

void EditableColor::setColor(const CapturedColor& color)
{
    const ColorNumbers numbers(color);
    m_srgb = numbers.rgb;
    m_alpha = numbers.alpha;
    m_isOutsideGamut = false;
    updateOklch();
    updateHsl();
}

CapturedColor EditableColor::captured() const
{
    return CapturedColor::capture(m_srgb[0], m_srgb[1], m_srgb[2], m_alpha);
}

void EditableColor::updateFromOklch()
{
    const Components xyz = xyzD65FromOklab(labFromLch(m_oklch));
    m_isOutsideGamut = !isInGamut(srgbFromXyzD65(xyz));
    m_srgb = gamutMapped(xyz);
    updateHsl();
}

void EditableColor::updateFromHsl()
{
    m_isOutsideGamut = false;
    m_srgb = srgbFromHsl(m_hsl);
    updateOklch();
}

void EditableColor::updateOklch()
{
    const Components now = numbersOf(m_srgb).oklch;
    m_oklch[0] = now[0];
    if (isBlackOrWhite(m_srgb)) {
        return;
    }
    m_oklch[1] = now[1];
    if (!isGray(m_srgb)) {
        m_oklch[2] = now[2];
    }
}

void EditableColor::updateHsl()
{
    const ColorNumbers now = numbersOf(m_srgb);
    m_hsl[2] = now.lightness;
    if (isBlackOrWhite(m_srgb)) {
        return;
    }
    if (isGray(m_srgb)) {
        m_hsl[1] = 0;
    } else {
        m_hsl[0] = now.hue;
        m_hsl[1] = now.saturation;
    }
}

} // namespace tintwick
