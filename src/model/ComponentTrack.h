#pragma once

#include "ColorComponent.h"
#include "ColorSpaces.h"

#include <vector>

namespace tintwick {

class EditableColor;

/// What one component of a colour changes while the others stay.
struct ComponentTrack
{
    /// A part of the range of the component, as fractions from 0, the lowest value, to 1, the greatest.
    struct Part
    {
        double from = 0;
        double to = 1;
    };

    /// sRGB at equal distances from the lowest value to the greatest; the nearest colours inside the gamut. Without alpha.
    std::vector<Components> colors;
    /// The parts that lie outside sRGB, in ascending order.
    std::vector<Part> outside;
};

/// For Alpha, all colours are the same.
[[nodiscard]] ComponentTrack trackOf(const EditableColor& color, ColorComponent component);

} // namespace tintwick
