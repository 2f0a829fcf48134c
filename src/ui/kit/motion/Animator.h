#pragma once

#include "Ticker.h"

#include <functional>

namespace tintwick {

/// Advances the springs of a view frame by frame until they rest. A member of that view.
class Animator final : private Motion
{
public:
    /// Receives the seconds since the last frame and returns whether anything still moves.
    using Step = std::function<bool(double seconds)>;

    explicit Animator(Step step);
    ~Animator() override;

    /// Runs until the step returns false. With reduced motion the step has run to its end before this returns.
    void start();

private:
    bool advance(double seconds) override { return m_step(seconds); }

    Step m_step;
};

} // namespace tintwick
