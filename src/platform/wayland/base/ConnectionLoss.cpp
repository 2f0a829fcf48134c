#include "ConnectionLoss.h"

#include <cstdio>
#include <mutex>

namespace tintwick {

void reportConnectionLoss()
{
    static std::once_flag isReported;
    // Other threads, which may end the process next, wait here.
    std::call_once(isReported, [] {
        std::fputs("tintwick: the connection to the Wayland compositor is lost\n", stderr);
    });
}

} // namespace tintwick
