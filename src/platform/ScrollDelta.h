#pragma once

namespace tintwick {

/// One step of the vertical wheel; positive is up (away from the user).
struct ScrollDelta
{
    double amount = 0;
    /// True where the amount is in points, as a touchpad's is; otherwise it counts wheel notches, of which a fine wheel
    /// turns parts.
    bool isPrecise = false;

    friend constexpr bool operator==(const ScrollDelta&, const ScrollDelta&) = default;
};

} // namespace tintwick
