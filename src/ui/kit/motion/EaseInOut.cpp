#include "EaseInOut.h"

#include <QEasingCurve>
#include <QPointF>

#include <algorithm>
#include <cmath>

namespace tintwick {

namespace {

/// The cubic 3t² − 2t³, which none of the named curves is.
const QEasingCurve& curve()
{
    static const QEasingCurve made = [] {
        QEasingCurve cubic(QEasingCurve::BezierSpline);
        cubic.addCubicBezierSegment({1.0 / 3, 0}, {2.0 / 3, 1}, {1, 1});
        return cubic;
    }();
    return made;
}

} // namespace

double EaseInOut::position() const
{
    return std::lerp(m_start, m_target, curve().valueForProgress(m_elapsed / m_duration));
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
