#pragma once

namespace tintwick {

/// A value that reaches its target in a fixed time, slow at both ends.
class EaseInOut final
{
public:
    /// `duration` in seconds.
    constexpr explicit EaseInOut(double duration, double position = 0)
        : m_duration(duration)
        , m_start(position)
        , m_target(position)
        , m_elapsed(duration)
    {
    }

    [[nodiscard]] double position() const;
    [[nodiscard]] constexpr double target() const { return m_target; }
    [[nodiscard]] constexpr bool isMoving() const { return m_elapsed < m_duration; }

    /// Starts from the present position.
    void setTarget(double target);
    /// Returns whether it still moves.
    bool advance(double seconds);

private:
    double m_duration;
    double m_start;
    double m_target;
    double m_elapsed;
};

} // namespace tintwick
