#pragma once

namespace tintwick {

/// One step of the vertical wheel; positive is up (away from the user).
struct ScrollDelta
{
    double amount = 0;
    /// True when the amount is in points, as from a touchpad. Otherwise it is in wheel notches, which may be
    /// fractional.
    bool isPrecise = false;

    friend constexpr bool operator==(const ScrollDelta&, const ScrollDelta&) = default;
};

} // namespace tintwick
