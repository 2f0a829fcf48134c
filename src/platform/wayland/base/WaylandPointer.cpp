#include "WaylandPointer.h"

#include <linux/input-event-codes.h>

#include <utility>

namespace tintwick {

namespace {

constexpr double notchInPoints =
    15; // what compositors send for one notch of a wheel without counting notches

PointerButton buttonOf(std::uint32_t code)
{
    switch (code) {
    case BTN_LEFT:
        return PointerButton::Primary;
    case BTN_RIGHT:
        return PointerButton::Secondary;
    case BTN_MIDDLE:
        return PointerButton::Middle;
    default:
        return PointerButton::Other;
    }
}

QPointF pointOf(wl_fixed_t x, wl_fixed_t y)
{
    return {wl_fixed_to_double(x), wl_fixed_to_double(y)};
}

} // namespace

/// The handlers of the pointer's events.
struct WaylandPointer::Handlers
{
    static WaylandPointer& of(void* self) { return *static_cast<WaylandPointer*>(self); }

    static void enter(void* self, wl_pointer* proxy, std::uint32_t serial, wl_surface* surface, wl_fixed_t x,
                      wl_fixed_t y)
    {
        wl_pointer_set_cursor(proxy, serial, nullptr, 0, 0);
        // The surface may have been destroyed meanwhile.
        if (surface) {
            of(self).m_surface = surface;
            of(self).m_pendingMove.reset();
            of(self).m_listener.pointerEntered(*surface, pointOf(x, y));
        }
    }

    static void leave(void* self, wl_pointer*, std::uint32_t, wl_surface*)
    {
        of(self).m_pendingMove.reset();
        of(self).m_surface = nullptr;
    }

    static void motion(void* self, wl_pointer*, std::uint32_t, wl_fixed_t x, wl_fixed_t y)
    {
        of(self).m_pendingMove = pointOf(x, y);
    }

    static void button(void* self, wl_pointer*, std::uint32_t serial, std::uint32_t, std::uint32_t code,
                       std::uint32_t state)
    {
        WaylandPointer& pointer = of(self);
        pointer.deliverMove();
        if (state == WL_POINTER_BUTTON_STATE_PRESSED) {
            pointer.m_listener.buttonPressed(buttonOf(code), serial);
        } else {
            pointer.m_listener.buttonReleased();
        }
    }

    static void axis(void* self, wl_pointer* proxy, std::uint32_t, std::uint32_t axis, wl_fixed_t value)
    {
        if (axis != WL_POINTER_AXIS_VERTICAL_SCROLL) {
            return;
        }
        of(self).m_points -= wl_fixed_to_double(value);
        if (wl_pointer_get_version(proxy) < WL_POINTER_FRAME_SINCE_VERSION) {
            of(self).reportScroll();
        }
    }

    static void frame(void* self, wl_pointer*) { of(self).reportScroll(); }

    static void axisSource(void* self, wl_pointer*, std::uint32_t source)
    {
        of(self).m_isWheel =
            source == WL_POINTER_AXIS_SOURCE_WHEEL || source == WL_POINTER_AXIS_SOURCE_WHEEL_TILT;
    }

    static void axisStop(void*, wl_pointer*, std::uint32_t, std::uint32_t) {}

    static void axisDiscrete(void* self, wl_pointer*, std::uint32_t axis, std::int32_t notches)
    {
        if (axis == WL_POINTER_AXIS_VERTICAL_SCROLL) {
            of(self).m_notches -= notches;
        }
    }

    static void axisValue120(void* self, wl_pointer*, std::uint32_t axis, std::int32_t value)
    {
        if (axis == WL_POINTER_AXIS_VERTICAL_SCROLL) {
            of(self).m_notches -= value / 120.0;
        }
    }
};

WaylandPointer::WaylandPointer(WlPointer pointer, Listener& listener)
    : m_pointer(std::move(pointer))
    , m_listener(listener)
{
    // Newer versions of the library have more events, which are not asked for.
    static constexpr wl_pointer_listener handlers = [] {
        wl_pointer_listener all{};
        all.enter = &Handlers::enter;
        all.leave = &Handlers::leave;
        all.motion = &Handlers::motion;
        all.button = &Handlers::button;
        all.axis = &Handlers::axis;
        all.frame = &Handlers::frame;
        all.axis_source = &Handlers::axisSource;
        all.axis_stop = &Handlers::axisStop;
        all.axis_discrete = &Handlers::axisDiscrete;
        all.axis_value120 = &Handlers::axisValue120;
        return all;
    }();
    wl_pointer_add_listener(m_pointer.get(), &handlers, this);
}

WaylandPointer::~WaylandPointer() = default;

void WaylandPointer::deliverMove()
{
    if (const auto position = std::exchange(m_pendingMove, std::nullopt); position && m_surface) {
        m_listener.pointerMoved(*m_surface, *position);
    }
}

void WaylandPointer::reportScroll()
{
    const double notches = std::exchange(m_notches, 0);
    const double points = std::exchange(m_points, 0);
    const bool isWheel = std::exchange(m_isWheel, true);
    if (notches == 0 && points == 0) {
        return;
    }
    deliverMove();
    if (isWheel) {
        m_listener.scrolled({notches != 0 ? notches : points / notchInPoints, false});
    } else {
        m_listener.scrolled({points, true});
    }
}

} // namespace tintwick
