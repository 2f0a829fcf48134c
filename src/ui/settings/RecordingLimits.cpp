#include "RecordingLimits.h"

#include "SessionLock.h"

namespace tintwick {

namespace {

constexpr std::chrono::seconds usualPatience{30};

} // namespace

RecordingLimits::RecordingLimits()
{
    m_timer.setSingleShot(true);
    m_timer.setInterval(usualPatience);
    connect(&m_timer, &QTimer::timeout, this, &RecordingLimits::reached);
}

RecordingLimits::~RecordingLimits() = default;

void RecordingLimits::start()
{
    m_timer.start();
    m_lock = std::make_unique<SessionLock>();
    connect(m_lock.get(), &SessionLock::locked, this, &RecordingLimits::reached);
}

void RecordingLimits::keyPressed()
{
    m_timer.start();
}

void RecordingLimits::stop()
{
    m_timer.stop();
    if (m_lock) {
        m_lock->disconnect(this);
        // It may be what reached the limit.
        m_lock.release()->deleteLater();
    }
}

} // namespace tintwick
