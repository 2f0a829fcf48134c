#include "Animator.h"

#include <utility>

namespace tintwick {

Animator::Animator(Step step)
    : m_step(std::move(step))
{
}

Animator::~Animator()
{
    Ticker::shared().stop(*this);
}

void Animator::start()
{
    Ticker::shared().start(*this);
}

} // namespace tintwick
