#include "ScrollValuators.h"

namespace tintwick {

namespace {

// Touchpad drivers report one notch as this number of points.
constexpr double pointsPerNotch = 15;

} // namespace

void ScrollValuators::addAxis(int number, double increment, double value)
{
    if (increment != 0) {
        m_axes[number] = Axis{increment, value};
    }
}

std::optional<ScrollDelta> ScrollValuators::moved(int number, double value, bool isPrecise)
{
    const auto found = m_axes.find(number);
    if (found == m_axes.end()) {
        return std::nullopt;
    }
    Axis& axis = found->second;
    // The axis points downwards.
    const double notches = (axis.value - value) / axis.increment;
    axis.value = value;
    if (notches == 0) {
        return std::nullopt;
    }
    return isPrecise ? ScrollDelta{notches * pointsPerNotch, true} : ScrollDelta{notches, false};
}

} // namespace tintwick
