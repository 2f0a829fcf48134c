#include "ConnectionLoss.h"

#include <atomic>
#include <cstdio>

namespace tintwick {

void reportConnectionLoss()
{
    static std::atomic_bool isReported = false;
    if (!isReported.exchange(true)) {
        std::fputs("tintwick: the connection to the Wayland compositor is lost\n", stderr);
    }
}

} // namespace tintwick
