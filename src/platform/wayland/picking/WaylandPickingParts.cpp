#include "WaylandPickingParts.h"

#include "Overlay.h"

#include <utility>

namespace tintwick {

WaylandPickingParts::WaylandPickingParts(WaylandConnection& ofConnection, WaylandSeat& ofSeat,
                                         std::vector<std::unique_ptr<ScreenCapture>> ways)
    : connection(ofConnection)
    , seat(ofSeat)
    , shell(ofConnection)
    , clipboard(ofConnection, ofSeat.get())
    , captures(std::move(ways))
{
    connect(&seat, &WaylandSeat::released, this, &WaylandPickingParts::dropKept);
}

WaylandPickingParts::~WaylandPickingParts() = default;

void WaylandPickingParts::keepUntilReleased(std::vector<std::unique_ptr<Overlay>> overlays)
{
    if (!seat.isAnyDown()) {
        return;
    }
    std::erase(overlays, nullptr);
    m_kept = std::move(overlays);
    for (const auto& overlay : m_kept) {
        overlay->clear();
    }
}

void WaylandPickingParts::dropKept()
{
    m_kept.clear();
    connection.flush();
}

} // namespace tintwick
