#pragma once

namespace tintwick {

/// A number by which a colour is edited: of OKLCH, of HSL, or the opacity.
enum class ColorComponent {
    OklchLightness,
    OklchChroma,
    OklchHue,
    HslHue,
    HslSaturation,
    HslLightness,
    Alpha
};

/// The greatest value; the lowest is 0. Hues are in degrees, all other components but chroma go to 1.
[[nodiscard]] constexpr double maximumOf(ColorComponent component)
{
    switch (component) {
    case ColorComponent::OklchHue:
    case ColorComponent::HslHue:
        return 360;
    case ColorComponent::OklchChroma:
        // Magenta has the greatest chroma in sRGB, 0.3225.
        return 0.33;
    default:
        return 1;
    }
}

} // namespace tintwick
