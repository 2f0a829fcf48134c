#pragma once

#include <QBasicTimer>
#include <QElapsedTimer>
#include <QObject>

#include <vector>

namespace tintwick {

class Animator;

/// The one clock of everything that moves. It runs only while something does.
class Ticker final : public QObject
{
    Q_OBJECT

public:
    /// Where the time comes from: the clock, or calls of `advance()` alone.
    enum class Mode { Clock, ByHand };

    [[nodiscard]] static Ticker& shared();

    void setMode(Mode mode);
    /// Frames a second of the screen that shows what moves; 0 where nobody knows it.
    void setRefreshRate(double rate);
    /// Without motion everything is at once where it would go.
    void setMotionReduced(bool reduced);

    /// Whether the timer wakes the process.
    [[nodiscard]] bool isRunning() const { return m_timer.isActive(); }
    [[nodiscard]] bool hasMotion() const { return !m_moving.empty(); }
    /// Moves everything on.
    void advance(double seconds);

protected:
    void timerEvent(QTimerEvent* event) override;

private:
    friend class Animator;

    void start(Animator& animator);
    void stop(Animator& animator);
    void runOrRest();

    std::vector<Animator*> m_moving;
    QBasicTimer m_timer;
    QElapsedTimer m_sinceFrame;
    Mode m_mode = Mode::Clock;
    double m_refreshRate = 0;
    bool m_motionReduced = false;
};

} // namespace tintwick
