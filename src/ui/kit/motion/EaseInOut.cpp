#include "EaseInOut.h"

#include <algorithm>

namespace tintwick {

double EaseInOut::position() const
{
    const double t = m_elapsed / m_duration;
    return m_start + (m_target - m_start) * t * t * (3 - 2 * t);
}

void EaseInOut::setTarget(double target)
{
    if (m_target == target) {
        return;
    }
    m_start = position();
    m_target = target;
    m_elapsed = 0;
}

bool EaseInOut::advance(double seconds)
{
    m_elapsed = std::min(m_elapsed + seconds, m_duration);
    return isMoving();
}

} // namespace tintwick
