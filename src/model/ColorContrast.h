#pragma once

#include "CapturedColor.h"
#include "WcagContrast.h"

#include <optional>

namespace tintwick {

/// How text of one colour is read on a ground of another.
class ColorContrast final
{
public:
    ColorContrast(const CapturedColor& text, const CapturedColor& ground);

    // The colours that the reader sees, opaque and rounded to 8 bits. A translucent ground lies on white, and translucent
    // text on the ground.
    [[nodiscard]] const Components& seenText() const { return m_text; }
    [[nodiscard]] const Components& seenGround() const { return m_ground; }

    /// The contrast ratio of WCAG 2.2; see contrastRatio().
    [[nodiscard]] double ratio() const { return contrastRatio(m_text, m_ground); }
    /// False for a criterion that does not exist.
    [[nodiscard]] bool passes(ContrastUse use, ContrastLevel level) const;
    /// The lightness contrast Lc of APCA; see lightnessContrast().
    [[nodiscard]] double lightness() const;

    /// The colour of the text with the nearest lightness at which text of normal size passes a level, opaque and captured
    /// now. Nothing when there is none.
    [[nodiscard]] std::optional<CapturedColor> nearestPassing(ContrastLevel level) const;

private:
    Components m_ground;
    Components m_text;
};

/// White, or black where that contrasts more with the text.
[[nodiscard]] CapturedColor strongestGround(const CapturedColor& text);

} // namespace tintwick
