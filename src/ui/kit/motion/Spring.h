#pragma once

#include <algorithm>

namespace tintwick {

/// A value pulled to its target by a damped spring. Each step is the exact solution, so the motion does not depend on the length
/// of the steps.
class Spring final
{
public:
    /// `response` is the period in seconds that the spring would have undamped; a `dampingFraction` of 1 does not
    /// overshoot.
    constexpr Spring(double response, double dampingFraction, double position = 0)
        : m_response(response)
        , m_dampingFraction(dampingFraction)
        , m_position(position)
        , m_target(position)
    {
    }

    [[nodiscard]] constexpr double position() const { return m_position; }
    /// The position clamped to 0 to 1, for an opacity or a mixture.
    [[nodiscard]] constexpr double fraction() const { return std::clamp(m_position, 0.0, 1.0); }
    /// Per second.
    [[nodiscard]] constexpr double velocity() const { return m_velocity; }
    [[nodiscard]] constexpr double target() const { return m_target; }
    [[nodiscard]] bool isMoving() const;

    /// Keeps position and velocity, so that the motion changes its direction smoothly.
    constexpr void setTarget(double target) { m_target = target; }
    /// Moves to `position` at once and rests there.
    void jumpTo(double position);
    /// Returns whether it still moves. It comes to rest when the distance to the target is invisible.
    bool advance(double seconds);

private:
    double m_response;
    double m_dampingFraction;
    double m_position;
    double m_velocity = 0;
    double m_target;
};

} // namespace tintwick
