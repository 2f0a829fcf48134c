#include "WaylandSeat.h"

#include <algorithm>

namespace tintwick {

namespace {

constexpr std::uint32_t seatVersion = 8;

} // namespace

WaylandSeat::WaylandSeat(WaylandConnection& connection)
    : m_seat(connection.bind<wl_seat>(wl_seat_interface, seatVersion))
{
    static constexpr wl_seat_listener listener{.capabilities =
                                                   [](void* self, wl_seat*, std::uint32_t capabilities) {
                                                       static_cast<WaylandSeat*>(self)->follow(capabilities);
                                                   },
                                               .name = [](void*, wl_seat*, const char*) {}};
    if (!m_seat) {
        return;
    }
    wl_seat_add_listener(m_seat.get(), &listener, this);
    WaylandPointer::Listener& pens = *this;
    m_tablets.emplace(connection, *m_seat, pens);
    connect(&connection, &WaylandConnection::drained, this, [this] {
        if (m_pointer) {
            m_pointer->deliverMove();
        }
        if (m_tablets) {
            m_tablets->deliverMoves();
        }
    });
}

WaylandSeat::~WaylandSeat() = default;

void WaylandSeat::follow(std::uint32_t capabilities)
{
    const auto has = [capabilities](std::uint32_t capability) { return (capabilities & capability) != 0; };
    if (has(WL_SEAT_CAPABILITY_POINTER) != (m_pointer != nullptr)) {
        m_buttonsDown = 0;
        m_pointer.reset(m_pointer ? nullptr
                                  : new WaylandPointer(WlPointer(wl_seat_get_pointer(m_seat.get())), *this));
    }
    if (has(WL_SEAT_CAPABILITY_TOUCH) != (m_touch != nullptr)) {
        m_touch.reset(m_touch ? nullptr : new WaylandTouch(WlTouch(wl_seat_get_touch(m_seat.get())), *this));
    }
    if (has(WL_SEAT_CAPABILITY_KEYBOARD) != (m_keyboard != nullptr)) {
        if (m_keyboard) {
            m_keyboard.reset();
        } else {
            addKeyboard();
        }
    }
}

void WaylandSeat::addKeyboard()
{
    m_keyboard = std::make_unique<WaylandKeyboard>(WlKeyboard(wl_seat_get_keyboard(m_seat.get())));
    connect(m_keyboard.get(), &WaylandKeyboard::keymapChanged, this, &WaylandSeat::keymapChanged);
    connect(m_keyboard.get(), &WaylandKeyboard::released, this, &WaylandSeat::reportReleased);
    connect(m_keyboard.get(), &WaylandKeyboard::entered, this, [this](wl_surface* surface) {
        if (m_listener && surface) {
            m_listener->keyboardEntered(*surface);
        }
    });
    connect(m_keyboard.get(), &WaylandKeyboard::keyPressed, this,
            [this](const KeyPress& press, std::uint32_t serial) {
                if (m_listener) {
                    m_listener->keyPressed(press, serial);
                }
            });
}

bool WaylandSeat::isAnyDown() const
{
    return m_buttonsDown > 0 || (m_keyboard && m_keyboard->isAnyKeyDown());
}

void WaylandSeat::reportReleased()
{
    if (!isAnyDown()) {
        Q_EMIT released();
    }
}

void WaylandSeat::pointerEntered(wl_surface& surface, QPointF position)
{
    if (m_listener) {
        m_listener->pointerEntered(surface, position);
    }
}

void WaylandSeat::pointerMoved(wl_surface& surface, QPointF position)
{
    if (m_listener) {
        m_listener->pointerMoved(surface, position);
    }
}

void WaylandSeat::buttonPressed(PointerButton button, std::uint32_t serial)
{
    ++m_buttonsDown;
    if (m_listener) {
        m_listener->buttonPressed(button, serial);
    }
}

void WaylandSeat::buttonReleased()
{
    m_buttonsDown = std::max(0, m_buttonsDown - 1);
    if (m_listener) {
        m_listener->buttonReleased();
    }
    reportReleased();
}

void WaylandSeat::scrolled(ScrollDelta delta)
{
    if (m_listener) {
        m_listener->scrolled(delta);
    }
}

void WaylandSeat::fingerMoved(wl_surface& surface, QPointF position)
{
    if (m_listener) {
        m_listener->fingerMoved(surface, position);
    }
}

void WaylandSeat::fingerLifted(std::uint32_t serial)
{
    if (m_listener) {
        m_listener->fingerLifted(serial);
    }
}

} // namespace tintwick
