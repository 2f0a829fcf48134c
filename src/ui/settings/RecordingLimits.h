#pragma once

#include <QObject>
#include <QTimer>

#include <chrono>
#include <memory>

namespace tintwick {

class SessionLock;

/// Tells when a recording must end by itself, because a screen locker needs the keyboard that it holds: when the session
/// locks, and when the user has not pressed a key for some time.
class RecordingLimits final : public QObject
{
    Q_OBJECT

public:
    RecordingLimits();
    ~RecordingLimits() override;

    /// The time without a key.
    void setPatience(std::chrono::milliseconds patience) { m_timer.setInterval(patience); }

    void start();
    void keyPressed();
    void stop();

Q_SIGNALS:
    void reached();

private:
    QTimer m_timer;
    std::unique_ptr<SessionLock> m_lock;
};

} // namespace tintwick
