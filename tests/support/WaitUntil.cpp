#include "support/WaitUntil.h"

#include <poll.h>

namespace tintwick {

bool waitUntil(const std::function<bool()>& condition, std::chrono::milliseconds deadline)
{
    const auto end = std::chrono::steady_clock::now() + deadline;
    while (!condition()) {
        if (std::chrono::steady_clock::now() >= end) {
            return false;
        }
        // Leave processor time to the other programs.
        ::poll(nullptr, 0, 1);
    }
    return true;
}

} // namespace tintwick
