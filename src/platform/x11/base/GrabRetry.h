#pragma once

#include <ctime>

namespace tintwick {

/// Calls `grab` until it returns true, for at most 150 ms, because another client may hold the device briefly, for
/// example while one of its menus closes. Blocks the thread. Returns false when every attempt failed.
template <typename Grab>
[[nodiscard]] bool retryGrab(Grab grab)
{
    constexpr int attempts = 30;
    constexpr timespec pause{0, 5'000'000};
    for (int attempt = 1; !grab(); ++attempt) {
        if (attempt == attempts) {
            return false;
        }
        nanosleep(&pause, nullptr);
    }
    return true;
}

} // namespace tintwick
