#pragma once

#include "WaylandConnection.h"
#include "WaylandPointer.h"

#include <memory>
#include <vector>

struct zwp_tablet_manager_v2;
struct zwp_tablet_seat_v2;

namespace tintwick {

template <>
struct WaylandDelete<zwp_tablet_manager_v2>
{
    void operator()(zwp_tablet_manager_v2* proxy) const;
};

template <>
struct WaylandDelete<zwp_tablet_seat_v2>
{
    void operator()(zwp_tablet_seat_v2* proxy) const;
};

/// The pens of graphics tablets, which act as pointers. The tip is the primary button, the first button of the pen the
/// secondary one.
class WaylandTablets final
{
public:
    /// Connection, seat and listener must outlive this object. Without the protocol nothing is reported.
    WaylandTablets(const WaylandConnection& connection, wl_seat& seat, WaylandPointer::Listener& listener);
    WaylandTablets(const WaylandTablets&) = delete;
    WaylandTablets& operator=(const WaylandTablets&) = delete;
    ~WaylandTablets();

    /// Reports the newest positions. Moves are merged until this is called.
    void deliverMoves();

private:
    class Pen;

    WaylandPointer::Listener& m_listener;
    WaylandHandle<zwp_tablet_manager_v2> m_manager;
    WaylandHandle<zwp_tablet_seat_v2> m_seat;
    std::vector<std::unique_ptr<Pen>> m_pens;
};

} // namespace tintwick
