#include "WaylandTouch.h"

#include <utility>

namespace tintwick {

/// The handlers of the touch events, in the order of the protocol.
struct WaylandTouch::Handlers
{
    static WaylandTouch& of(void* self) { return *static_cast<WaylandTouch*>(self); }

    static void down(void* self, wl_touch*, std::uint32_t, std::uint32_t, wl_surface* surface,
                     std::int32_t finger, wl_fixed_t x, wl_fixed_t y)
    {
        WaylandTouch& touch = of(self);
        if (!touch.m_finger && surface) {
            touch.m_finger = finger;
            touch.m_surface = surface;
            touch.m_listener.fingerMoved(*surface, {wl_fixed_to_double(x), wl_fixed_to_double(y)});
        }
    }

    static void up(void* self, wl_touch*, std::uint32_t serial, std::uint32_t, std::int32_t finger)
    {
        WaylandTouch& touch = of(self);
        if (touch.m_finger == finger) {
            touch.m_finger.reset();
            touch.m_listener.fingerLifted(serial);
        }
    }

    static void motion(void* self, wl_touch*, std::uint32_t, std::int32_t finger, wl_fixed_t x, wl_fixed_t y)
    {
        WaylandTouch& touch = of(self);
        if (touch.m_finger == finger) {
            touch.m_listener.fingerMoved(*touch.m_surface, {wl_fixed_to_double(x), wl_fixed_to_double(y)});
        }
    }

    static void frame(void*, wl_touch*) {}

    // The compositor uses the touch for a gesture of its own.
    static void cancel(void* self, wl_touch*) { of(self).m_finger.reset(); }

    static void shape(void*, wl_touch*, std::int32_t, wl_fixed_t, wl_fixed_t) {}
    static void orientation(void*, wl_touch*, std::int32_t, wl_fixed_t) {}
};

WaylandTouch::WaylandTouch(WlTouch touch, Listener& listener)
    : m_touch(std::move(touch))
    , m_listener(listener)
{
    static constexpr wl_touch_listener handlers{&Handlers::down,       &Handlers::up,     &Handlers::motion,
                                                &Handlers::frame,      &Handlers::cancel, &Handlers::shape,
                                                &Handlers::orientation};
    wl_touch_add_listener(m_touch.get(), &handlers, this);
}

WaylandTouch::~WaylandTouch() = default;

} // namespace tintwick
