#include "X11ClipboardService.h"

#include "ClipboardOwner.h"
#include "XcbConnection.h"

#include <cstdlib>

namespace tintwick {

int serveX11Clipboard(const ClipboardTask& task)
{
    const auto connection = XcbConnection::open();
    if (!connection) {
        return EXIT_FAILURE;
    }
    ClipboardOwner clipboard(*connection, task.text);
    if (!clipboard.takeFrom(task.owner.toUInt())) {
        return EXIT_FAILURE;
    }
    reportClipboardTaken();
    clipboard.serve();
    return EXIT_SUCCESS;
}

} // namespace tintwick
