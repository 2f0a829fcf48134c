#pragma once

#include "ScrollDelta.h"

#include <algorithm>
#include <cmath>

namespace tintwick {

/// Accumulates scroll amounts to whole zoom steps. The remainder is kept for the next event.
class ScrollAccumulator final
{
public:
    /// Points of scrolling for one zoom step.
    static constexpr double pointsPerStep = 5;
    /// Points that one notch of a wheel counts for.
    static constexpr double pointsPerNotch = 3;

    /// The zoom steps completed by this event; positive when scrolling up.
    [[nodiscard]] int add(ScrollDelta delta)
    {
        const double points = delta.isPrecise ? delta.amount : delta.amount * pointsPerNotch;
        // A non-finite amount would make the remainder non-finite, and with it every later result.
        if (!std::isfinite(points)) {
            return 0;
        }
        const double sum = m_remainder + points;
        m_remainder = std::fmod(sum, pointsPerStep);
        return static_cast<int>(std::clamp(std::trunc(sum / pointsPerStep), -maximalSteps, maximalSteps));
    }

    [[nodiscard]] double remainder() const { return m_remainder; }

private:
    /// Exceeds every zoom range and keeps the number within an int.
    static constexpr double maximalSteps = 1000;

    double m_remainder = 0;
};

} // namespace tintwick
