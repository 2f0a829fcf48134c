#pragma once

namespace tintwick {

/// The settings for the loupe's appearance.
struct LoupeLook
{
    bool isCircle = false;
    /// Side of the lens in points.
    double side = 130;
    /// What the pill says below the code. At least one of both.
    bool showsName = true;
    bool showsText = false;
    /// Texts and grid lines contrast with the colours below them by 4.5 : 1 at least.
    bool hasHighContrast = false;

    friend constexpr bool operator==(const LoupeLook&, const LoupeLook&) = default;
};

} // namespace tintwick
