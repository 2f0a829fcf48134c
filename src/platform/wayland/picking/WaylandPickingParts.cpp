#include "WaylandPickingParts.h"

#include "OutputCover.h"

#include <chrono>
#include <utility>

namespace tintwick {

namespace {

// A program that ends with its pick waits this long for the release of the button.
constexpr std::chrono::milliseconds longestPress{500};

} // namespace

WaylandPickingParts::WaylandPickingParts(WaylandConnection& ofConnection, WaylandSeat& ofSeat,
                                         std::vector<std::unique_ptr<ScreenCapture>> ofCaptures)
    : connection(ofConnection)
    , seat(ofSeat)
    , shell(ofConnection)
    , clipboard(ofConnection, ofSeat.get())
    , captures(std::move(ofCaptures))
{
    connect(&seat, &WaylandSeat::released, this, &WaylandPickingParts::dropKept);
}

WaylandPickingParts::~WaylandPickingParts()
{
    using Clock = std::chrono::steady_clock;
    const auto end = Clock::now() + longestPress;
    while (keepsAny()) {
        const auto rest = std::chrono::duration_cast<std::chrono::milliseconds>(end - Clock::now());
        if (rest.count() <= 0 || !connection.waitForEvents(rest)) {
            break;
        }
    }
}

void WaylandPickingParts::keepUntilReleased(std::vector<std::unique_ptr<OutputCover>> covers)
{
    if (!seat.isAnyDown()) {
        return;
    }
    std::erase(covers, nullptr);
    m_kept = std::move(covers);
    for (const auto& cover : m_kept) {
        cover->clear();
    }
}

void WaylandPickingParts::dropKept()
{
    m_kept.clear();
    connection.flush();
}

} // namespace tintwick
