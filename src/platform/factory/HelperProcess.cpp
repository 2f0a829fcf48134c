#include "HelperProcess.h"

#include "ClipboardProcess.h"
#include "WaylandClipboardService.h"
#include "X11ClipboardService.h"

namespace tintwick {

std::optional<int> runHelperProcess(int argc, char** argv)
{
    const auto task = readClipboardTask(argc, argv);
    if (!task) {
        return std::nullopt;
    }
    return task->owner == waylandClipboardOwner ? serveWaylandClipboard(*task) : serveX11Clipboard(*task);
}

} // namespace tintwick
