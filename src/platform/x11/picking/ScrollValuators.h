#pragma once

#include "ScrollDelta.h"

#include <map>
#include <optional>

namespace tintwick {

/// Converts the absolute values of a device's vertical scroll axis to steps. A plain value, so that it can be tested
/// without a device.
class ScrollValuators final
{
public:
    /// One vertical scroll axis: its number, the increment of one wheel notch (its sign is the direction) and its
    /// current value.
    void addAxis(int number, double increment, double value);
    void clear() { m_axes.clear(); }

    [[nodiscard]] bool hasAxis() const { return !m_axes.empty(); }

    /// The step from the axis's last value to this one; nothing for other axes and without movement.
    [[nodiscard]] std::optional<ScrollDelta> moved(int number, double value, bool isPrecise);

private:
    struct Axis
    {
        double increment = 1;
        double value = 0;
    };
    std::map<int, Axis> m_axes;
};

} // namespace tintwick
