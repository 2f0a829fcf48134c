#pragma once

#include "ColorComponent.h"
#include "ColorSpaces.h"

namespace tintwick {

struct CapturedColor;

/// A colour that is edited in OKLCH and in HSL. A change in one model gives the numbers of the other one.
///
/// A number that the colour itself does not determine keeps its last value: the hue of a grey, and hue and chroma or
/// saturation of black and white. So a component that is set to its end and back gives the same colour again.
class EditableColor final
{
public:
    /// Components outside 0 to 1 count as the nearest inside.
    explicit EditableColor(const CapturedColor& color);

    [[nodiscard]] double value(ColorComponent component) const;
    /// Clamps the value to 0 and maximumOf().
    void setValue(ColorComponent component, double value);
    /// Takes another colour, and the hue of the present one if that is a grey.
    void setColor(const CapturedColor& color);

    /// 0 to 1. For numbers outside the gamut, what gamutMapped() makes of them.
    [[nodiscard]] const Components& srgb() const { return m_srgb; }
    [[nodiscard]] double alpha() const { return m_alpha; }
    /// Whether the numbers of OKLCH describe a colour outside sRGB.
    [[nodiscard]] bool isOutsideGamut() const { return m_isOutsideGamut; }

    /// The colour captured now: with a new id and without a name.
    [[nodiscard]] CapturedColor captured() const;

    friend bool operator==(const EditableColor&, const EditableColor&) = default;

private:
    void updateFromOklch();
    void updateFromHsl();
    void updateOklch();
    void updateHsl();

    Components m_srgb{};
    double m_alpha = 1;
    /// Lightness, chroma, hue.
    Components m_oklch{};
    /// Hue, saturation, lightness.
    Components m_hsl{};
    bool m_isOutsideGamut = false;
};

} // namespace tintwick
