#pragma once

#include <functional>

namespace tintwick {

/// Moves its owner's springs on with every frame until they rest. A member of the view whose values it moves.
class Animator final
{
public:
    /// Given the seconds since the last frame; returns whether anything still moves.
    using Step = std::function<bool(double seconds)>;

    explicit Animator(Step step);
    ~Animator();
    Animator(const Animator&) = delete;
    Animator& operator=(const Animator&) = delete;

    /// Goes on until the step says that all is at rest. Where motion is reduced, that is before this returns.
    void start();

private:
    friend class Ticker;

    Step m_step;
};

} // namespace tintwick
