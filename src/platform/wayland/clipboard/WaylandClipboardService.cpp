#include "WaylandClipboardService.h"

#include "WaylandClipboard.h"

#include <cstdlib>

namespace tintwick {

int serveWaylandClipboard(const ClipboardTask& task)
{
    const auto connection = WaylandConnection::open();
    if (!connection) {
        return EXIT_FAILURE;
    }
    const WlSeat seat(connection->bind<wl_seat>(wl_seat_interface, 1));
    WaylandClipboard clipboard(*connection, seat.get());
    if (!clipboard.isAlwaysSettable() || !clipboard.copy(task.text, 0)) {
        return EXIT_FAILURE;
    }
    reportClipboardTaken();
    while (clipboard.isOwner() && connection->waitForEvents()) {
    }
    return EXIT_SUCCESS;
}

} // namespace tintwick
