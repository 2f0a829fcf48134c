#include "Spring.h"

#include <cmath>
#include <numbers>

namespace tintwick {

namespace {

constexpr double restDistance = 0.001;
constexpr double restVelocity = 0.01;

} // namespace

bool Spring::isMoving() const
{
    return m_position != m_target || m_velocity != 0;
}

void Spring::jumpTo(double position)
{
    m_position = position;
    m_target = position;
    m_velocity = 0;
}

bool Spring::advance(double seconds)
{
    if (!isMoving()) {
        return false;
    }
    const double frequency = 2 * std::numbers::pi / m_response;
    const double decay = m_dampingFraction * frequency;
    const double distance = m_position - m_target;
    const double fade = std::exp(-decay * seconds);
    // x" + 2·decay·x' + frequency²·x = 0, for the distance x from the target.
    double position = 0;
    double velocity = 0;
    if (m_dampingFraction < 1) {
        const double damped = frequency * std::sqrt(1 - m_dampingFraction * m_dampingFraction);
        const double push = (m_velocity + decay * distance) / damped;
        const double cosine = std::cos(damped * seconds);
        const double sine = std::sin(damped * seconds);
        position = fade * (distance * cosine + push * sine);
        velocity =
            fade * ((push * damped - decay * distance) * cosine - (distance * damped + decay * push) * sine);
    } else {
        // More damping than critical is treated as critical.
        const double push = m_velocity + frequency * distance;
        const double critical = std::exp(-frequency * seconds);
        position = critical * (distance + push * seconds);
        velocity = critical * (push - frequency * (distance + push * seconds));
    }
    if (std::abs(position) < restDistance && std::abs(velocity) < restVelocity) {
        jumpTo(m_target);
        return false;
    }
    m_position = m_target + position;
    m_velocity = velocity;
    return true;
}

} // namespace tintwick
