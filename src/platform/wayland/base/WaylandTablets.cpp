#include "WaylandTablets.h"

#include <tablet-v2-client-protocol.h>

#include <linux/input-event-codes.h>

#include <optional>
#include <utility>

namespace tintwick {

void WaylandDelete<zwp_tablet_manager_v2>::operator()(zwp_tablet_manager_v2* proxy) const
{
    zwp_tablet_manager_v2_destroy(proxy);
}

void WaylandDelete<zwp_tablet_seat_v2>::operator()(zwp_tablet_seat_v2* proxy) const
{
    zwp_tablet_seat_v2_destroy(proxy);
}

/// One pen. The handlers are in the order of the protocol.
class WaylandTablets::Pen final
{
public:
    Pen(WaylandTablets& tablets, zwp_tablet_tool_v2* tool)
        : m_tablets(tablets)
        , m_tool(tool)
    {
        static constexpr zwp_tablet_tool_v2_listener handlers{
            .type = [](void*, zwp_tablet_tool_v2*, std::uint32_t) {},
            .hardware_serial = [](void*, zwp_tablet_tool_v2*, std::uint32_t, std::uint32_t) {},
            .hardware_id_wacom = [](void*, zwp_tablet_tool_v2*, std::uint32_t, std::uint32_t) {},
            .capability = [](void*, zwp_tablet_tool_v2*, std::uint32_t) {},
            .done = [](void*, zwp_tablet_tool_v2*) {},
            .removed = [](void* self, zwp_tablet_tool_v2*) { of(self).remove(); },
            .proximity_in =
                [](void* self, zwp_tablet_tool_v2* proxy, std::uint32_t serial, zwp_tablet_v2*,
                   wl_surface* surface) {
                    zwp_tablet_tool_v2_set_cursor(proxy, serial, nullptr, 0, 0);
                    of(self).m_surface = surface;
                },
            .proximity_out = [](void* self, zwp_tablet_tool_v2*) { of(self).leave(); },
            .down = [](void* self, zwp_tablet_tool_v2*,
                       std::uint32_t serial) { of(self).press(PointerButton::Primary, serial); },
            .up = [](void* self, zwp_tablet_tool_v2*) { of(self).release(); },
            .motion =
                [](void* self, zwp_tablet_tool_v2*, wl_fixed_t x, wl_fixed_t y) {
                    of(self).m_pendingMove = {wl_fixed_to_double(x), wl_fixed_to_double(y)};
                },
            .pressure = [](void*, zwp_tablet_tool_v2*, std::uint32_t) {},
            .distance = [](void*, zwp_tablet_tool_v2*, std::uint32_t) {},
            .tilt = [](void*, zwp_tablet_tool_v2*, wl_fixed_t, wl_fixed_t) {},
            .rotation = [](void*, zwp_tablet_tool_v2*, wl_fixed_t) {},
            .slider = [](void*, zwp_tablet_tool_v2*, std::int32_t) {},
            .wheel = [](void*, zwp_tablet_tool_v2*, wl_fixed_t, std::int32_t) {},
            .button =
                [](void* self, zwp_tablet_tool_v2*, std::uint32_t serial, std::uint32_t button,
                   std::uint32_t state) {
                    if (state == ZWP_TABLET_TOOL_V2_BUTTON_STATE_PRESSED) {
                        of(self).press(button == BTN_STYLUS ? PointerButton::Secondary : PointerButton::Other,
                                       serial);
                    } else {
                        of(self).release();
                    }
                },
            .frame = [](void*, zwp_tablet_tool_v2*, std::uint32_t) {}};
        zwp_tablet_tool_v2_add_listener(m_tool, &handlers, this);
    }
    ~Pen() { zwp_tablet_tool_v2_destroy(m_tool); }
    Pen(const Pen&) = delete;
    Pen& operator=(const Pen&) = delete;

    void deliverMove()
    {
        const auto position = std::exchange(m_pendingMove, std::nullopt);
        if (!position || !m_surface) {
            return;
        }
        if (std::exchange(m_hasEntered, true)) {
            m_tablets.m_listener.pointerMoved(*m_surface, *position);
        } else {
            m_tablets.m_listener.pointerEntered(*m_surface, *position);
        }
    }

private:
    static Pen& of(void* self) { return *static_cast<Pen*>(self); }

    void press(PointerButton button, std::uint32_t serial)
    {
        deliverMove();
        m_tablets.m_listener.buttonPressed(button, serial);
    }

    void release() { m_tablets.m_listener.buttonReleased(); }

    void leave()
    {
        m_pendingMove.reset();
        m_hasEntered = false;
        m_surface = nullptr;
    }

    void remove()
    {
        leave();
        std::erase_if(m_tablets.m_pens, [this](const auto& pen) { return pen.get() == this; });
    }

    WaylandTablets& m_tablets;
    zwp_tablet_tool_v2* m_tool;
    /// Null over none of our surfaces.
    wl_surface* m_surface = nullptr;
    /// The position over this surface has been reported.
    bool m_hasEntered = false;
    std::optional<QPointF> m_pendingMove;
};

namespace {

constexpr zwp_tablet_v2_listener tabletHandlers{
    .name = [](void*, zwp_tablet_v2*, const char*) {},
    .id = [](void*, zwp_tablet_v2*, std::uint32_t, std::uint32_t) {},
    .path = [](void*, zwp_tablet_v2*, const char*) {},
    .done = [](void*, zwp_tablet_v2*) {},
    .removed = [](void*, zwp_tablet_v2* tablet) { zwp_tablet_v2_destroy(tablet); }};

} // namespace

WaylandTablets::WaylandTablets(const WaylandConnection& connection, wl_seat& seat,
                               WaylandPointer::Listener& listener)
    : m_listener(listener)
    , m_manager(connection.bind<zwp_tablet_manager_v2>(zwp_tablet_manager_v2_interface, 1))
{
    static constexpr zwp_tablet_seat_v2_listener handlers{
        .tablet_added =
            [](void*, zwp_tablet_seat_v2*, zwp_tablet_v2* tablet) {
                zwp_tablet_v2_add_listener(tablet, &tabletHandlers, nullptr);
            },
        .tool_added =
            [](void* self, zwp_tablet_seat_v2*, zwp_tablet_tool_v2* tool) {
                auto& tablets = *static_cast<WaylandTablets*>(self);
                tablets.m_pens.push_back(std::make_unique<Pen>(tablets, tool));
            },
        // The buttons of the tablet itself are of no use here.
        .pad_added = [](void*, zwp_tablet_seat_v2*,
                        zwp_tablet_pad_v2* pad) { zwp_tablet_pad_v2_destroy(pad); }};
    if (m_manager) {
        m_seat.reset(zwp_tablet_manager_v2_get_tablet_seat(m_manager.get(), &seat));
        zwp_tablet_seat_v2_add_listener(m_seat.get(), &handlers, this);
    }
}

WaylandTablets::~WaylandTablets() = default;

void WaylandTablets::deliverMoves()
{
    for (const auto& pen : m_pens) {
        pen->deliverMove();
    }
}

} // namespace tintwick
