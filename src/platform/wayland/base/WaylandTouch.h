#pragma once

#include "WaylandHandle.h"

#include <QPointF>

#include <cstdint>
#include <optional>

namespace tintwick {

/// One finger over the surfaces of this connection: the first that goes down, until it is lifted. Positions are in
/// logical units from the top left of the surface.
class WaylandTouch final
{
public:
    class Listener
    {
    public:
        virtual void fingerMoved(wl_surface& surface, QPointF position) = 0;
        /// Lifted where it was last. The serial allows requests that need an action of the user.
        virtual void fingerLifted(std::uint32_t serial) = 0;

    protected:
        ~Listener() = default;
    };

    WaylandTouch(WlTouch touch, Listener& listener);
    WaylandTouch(const WaylandTouch&) = delete;
    WaylandTouch& operator=(const WaylandTouch&) = delete;
    ~WaylandTouch();

private:
    struct Handlers;

    WlTouch m_touch;
    Listener& m_listener;
    /// None while no finger is down.
    std::optional<std::int32_t> m_finger;
    wl_surface* m_surface = nullptr;
};

} // namespace tintwick
