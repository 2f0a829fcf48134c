#pragma once

#include "PickingSession.h"
#include "ScrollDelta.h"
#include "WaylandHandle.h"

#include <QPointF>

#include <cstdint>
#include <optional>

namespace tintwick {

/// The pointer over the surfaces of this connection. It is not drawn there. Positions are in logical units from the top left
/// of the surface.
class WaylandPointer final
{
public:
    class Listener
    {
    public:
        virtual void pointerEntered(wl_surface& surface, QPointF position) = 0;
        virtual void pointerMoved(wl_surface& surface, QPointF position) = 0;
        /// The serial allows requests that need an action of the user.
        virtual void buttonPressed(PointerButton button, std::uint32_t serial) = 0;
        virtual void buttonReleased() = 0;
        virtual void scrolled(ScrollDelta delta) = 0;

    protected:
        ~Listener() = default;
    };

    WaylandPointer(WlPointer pointer, Listener& listener);
    WaylandPointer(const WaylandPointer&) = delete;
    WaylandPointer& operator=(const WaylandPointer&) = delete;
    ~WaylandPointer();

    /// Reports the newest position. Moves are merged until this is called.
    void deliverMove();

private:
    struct Handlers;

    void reportScroll();

    WlPointer m_pointer;
    Listener& m_listener;
    /// The surface under the pointer; null over none of ours.
    wl_surface* m_surface = nullptr;
    std::optional<QPointF> m_pendingMove;
    /// What the current group of events scrolls by.
    double m_notches = 0;
    double m_points = 0;
    bool m_isWheel = true;
};

} // namespace tintwick
