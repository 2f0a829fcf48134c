#pragma once

#include "ScrollDelta.h"

#include <algorithm>
#include <cmath>

namespace tintwick {

/// Gathers scroll amounts into whole zoom steps; what is not enough for a step is kept for the next event.
class ScrollAccumulator final
{
public:
    /// Points of scrolling that make one step.
    static constexpr double pointsPerStep = 5;
    /// What one notch of a wheel counts for.
    static constexpr double pointsPerNotch = 3;

    /// The steps that are complete with this event, positive when scrolling up.
    [[nodiscard]] int add(ScrollDelta delta)
    {
        const double points = delta.isPrecise ? delta.amount : delta.amount * pointsPerNotch;
        // One broken event must not poison the remainder, and with it every event after.
        if (!std::isfinite(points)) {
            return 0;
        }
        const double sum = m_remainder + points;
        m_remainder = std::fmod(sum, pointsPerStep);
        return static_cast<int>(std::clamp(std::trunc(sum / pointsPerStep), -maximalSteps, maximalSteps));
    }

    [[nodiscard]] double remainder() const { return m_remainder; }

private:
    /// More than any zoom range has; keeps the number within an int.
    static constexpr double maximalSteps = 1000;

    double m_remainder = 0;
};

} // namespace tintwick
