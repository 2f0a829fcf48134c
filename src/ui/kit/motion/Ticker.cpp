#include "Ticker.h"

#include <QTimerEvent>

#include <algorithm>

namespace tintwick {

namespace {

/// Seconds; longer than any motion takes to come to rest.
constexpr double allMotion = 3600;

/// In milliseconds.
int frameInterval(double rate)
{
    return static_cast<int>(1000 / std::clamp(rate > 0 ? rate : 60, 30.0, 144.0));
}

} // namespace

Ticker& Ticker::shared()
{
    static Ticker ticker;
    return ticker;
}

void Ticker::setMode(Mode mode)
{
    m_mode = mode;
    updateTimer();
}

void Ticker::setRefreshRate(double rate)
{
    m_refreshRate = rate;
}

void Ticker::setMotionReduced(bool reduced)
{
    m_motionReduced = reduced;
    if (reduced) {
        advance(allMotion);
    }
}

void Ticker::advance(double seconds)
{
    // A copy, because a step may start or stop other motions.
    const std::vector<Motion*> now = m_moving;
    for (Motion* motion : now) {
        if (std::ranges::find(m_moving, motion) != m_moving.end() && !motion->advance(seconds)) {
            std::erase(m_moving, motion);
        }
    }
    updateTimer();
}

void Ticker::timerEvent(QTimerEvent* event)
{
    if (event->timerId() == m_timer.timerId()) {
        advance(static_cast<double>(m_sinceFrame.nsecsElapsed()) / 1e9);
        m_sinceFrame.start();
    }
}

void Ticker::start(Motion& motion)
{
    if (m_motionReduced) {
        motion.advance(allMotion);
        return;
    }
    if (std::ranges::find(m_moving, &motion) == m_moving.end()) {
        m_moving.push_back(&motion);
        updateTimer();
    }
}

void Ticker::stop(Motion& motion)
{
    std::erase(m_moving, &motion);
    updateTimer();
}

void Ticker::updateTimer()
{
    const bool run = m_mode == Mode::Clock && !m_moving.empty();
    if (run && !m_timer.isActive()) {
        m_sinceFrame.start();
        m_timer.start(frameInterval(m_refreshRate), Qt::PreciseTimer, this);
    } else if (!run) {
        m_timer.stop();
    }
}

} // namespace tintwick
