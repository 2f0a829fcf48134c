#pragma once

#include <QBasicTimer>
#include <QElapsedTimer>
#include <QObject>

#include <vector>

namespace tintwick {

/// Something that changes with time while the ticker runs it.
class Motion
{
public:
    Motion(const Motion&) = delete;
    Motion& operator=(const Motion&) = delete;

    /// Advances by `seconds`. Returns whether it still moves.
    virtual bool advance(double seconds) = 0;

protected:
    Motion() = default;
    virtual ~Motion() = default;
};

/// The one timer of all motions. It runs only while something moves.
///
/// Not QAnimationDriver with QAbstractAnimation: QAbstractAnimation registers with the driver in a queued call, so a step by
/// hand directly after `start()` moves nothing and tests would have to process events before each step; the driver also starts
/// and stops one turn of the event loop late, counts whole milliseconds, and still needs a timer of its own for the refresh
/// rate of the screen.
class Ticker final : public QObject
{
    Q_OBJECT

public:
    /// Whether a timer advances the motions, or only calls of `advance()`.
    enum class Mode { Clock, ByHand };

    [[nodiscard]] static Ticker& shared();

    void setMode(Mode mode);
    /// Frames per second of the screen; 0 when unknown, which counts as 60.
    void setRefreshRate(double rate);
    /// With reduced motion, every motion ends at its target before `start()` returns.
    void setMotionReduced(bool reduced);

    /// Runs `motion` until its `advance()` returns false.
    void start(Motion& motion);
    void stop(Motion& motion);

    /// Whether the timer wakes the process.
    [[nodiscard]] bool isRunning() const { return m_timer.isActive(); }
    [[nodiscard]] bool hasMotion() const { return !m_moving.empty(); }
    /// Advances all motions by `seconds`.
    void advance(double seconds);

protected:
    void timerEvent(QTimerEvent* event) override;

private:
    void updateTimer();

    std::vector<Motion*> m_moving;
    QBasicTimer m_timer;
    QElapsedTimer m_sinceFrame;
    Mode m_mode = Mode::Clock;
    double m_refreshRate = 0;
    bool m_motionReduced = false;
};

} // namespace tintwick
