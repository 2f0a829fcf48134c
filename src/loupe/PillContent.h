#pragma once

#include "PixelGrid.h"

#include <QString>

namespace tintwick {

/// Whether dark or light text stands on the pill's colour.
enum class PillTone { LightBackground, DarkBackground };

/// What the loupe's pill says about a colour.
struct PillContent
{
    /// Six upper-case digits without "#". Components are truncated to bytes here, not rounded as in the texts
    /// of a captured colour; for a colour that came from bytes it makes no difference.
    QString hex;
    /// The nearest named colour.
    QString name;
    PillTone tone = PillTone::LightBackground;

    [[nodiscard]] static PillContent of(const SampledColor& color);

    friend bool operator==(const PillContent&, const PillContent&) = default;
};

} // namespace tintwick
