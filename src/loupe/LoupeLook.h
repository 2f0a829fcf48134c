#pragma once

namespace tintwick {

/// The user's settings for the loupe's appearance.
struct LoupeLook
{
    bool isCircle = false;
    /// Side of the lens in points.
    double side = 130;

    friend constexpr bool operator==(const LoupeLook&, const LoupeLook&) = default;
};

} // namespace tintwick
