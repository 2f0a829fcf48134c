#include "Ticker.h"

#include "Animator.h"

#include <QTimerEvent>

#include <algorithm>

namespace tintwick {

namespace {

/// Longer than anything here takes to come to rest.
constexpr double allMotion = 3600;

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
    runOrRest();
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
    // A step may start or end the motion of others.
    const std::vector<Animator*> now = m_moving;
    for (Animator* animator : now) {
        if (std::ranges::find(m_moving, animator) != m_moving.end() && !animator->m_step(seconds)) {
            std::erase(m_moving, animator);
        }
    }
    runOrRest();
}

void Ticker::timerEvent(QTimerEvent* event)
{
    if (event->timerId() == m_timer.timerId()) {
        advance(static_cast<double>(m_sinceFrame.nsecsElapsed()) / 1e9);
        m_sinceFrame.start();
    }
}

void Ticker::start(Animator& animator)
{
    if (m_motionReduced) {
        animator.m_step(allMotion);
        return;
    }
    if (std::ranges::find(m_moving, &animator) == m_moving.end()) {
        m_moving.push_back(&animator);
        runOrRest();
    }
}

void Ticker::stop(Animator& animator)
{
    std::erase(m_moving, &animator);
    runOrRest();
}

void Ticker::runOrRest()
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
