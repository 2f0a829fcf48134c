#include "X11PointerBadge.h"

#include "ClosedWindows.h"
#include "X11Compositor.h"
#include "X11Screens.h"
#include "XInput.h"

#include <xcb/xinput.h>

#include <algorithm>
#include <utility>

namespace tintwick {

namespace {

// In points; beside a pointer of usual size.
constexpr QPointF offset(14, 18);

X11Screen screenAt(const XcbConnection& connection, QPoint position)
{
    const std::vector<X11Screen> screens = queryScreens(connection);
    const auto found = std::ranges::find_if(
        screens, [&](const X11Screen& screen) { return screen.frame.contains(position); });
    return found == screens.end() ? X11Screen{{position, QSize(1, 1)}, 1} : *found;
}

/// Below and right of the pointer; on its other side where the screen ends.
int placeAlong(int pointer, int distance, int length, int end)
{
    return pointer + distance + length <= end ? pointer + distance : pointer - distance - length;
}

} // namespace

X11PointerBadge::X11PointerBadge(XcbConnection& connection, ClosedWindows& closedWindows)
    : m_connection(connection)
    , m_closedWindows(closedWindows)
    , m_inputExtension(openInputExtension(connection))
{
}

X11PointerBadge::~X11PointerBadge()
{
    hide();
}

void X11PointerBadge::show(const Draw& draw, Place place)
{
    m_draw = draw;
    if (!m_window) {
        m_window.emplace(m_connection, "Tintwick Badge");
    }
    drawAt(pointer());
    selectMotion(place == Place::FollowsPointer);
    m_connection.flush();
}

void X11PointerBadge::hide()
{
    if (!m_window) {
        return;
    }
    selectMotion(false);
    // A compositor shows it for another frame.
    m_closedWindows.add(m_window->frame());
    m_window.reset();
    m_connection.flush();
}

void X11PointerBadge::handleEvent(const xcb_generic_event_t& event)
{
    if ((event.response_type & 0x7f) == XCB_GE_GENERIC) {
        const auto& generic = reinterpret_cast<const xcb_ge_generic_event_t&>(event);
        m_hasMoved |= generic.extension == m_inputExtension && generic.event_type == XCB_INPUT_RAW_MOTION;
    }
}

void X11PointerBadge::eventsDrained()
{
    if (std::exchange(m_hasMoved, false) && m_window) {
        drawAt(pointer());
        m_connection.flush();
    }
}

QPoint X11PointerBadge::pointer() const
{
    xcb_connection_t* c = m_connection.get();
    const XcbReply<xcb_query_pointer_reply_t> reply(
        xcb_query_pointer_reply(c, xcb_query_pointer(c, m_connection.root()), nullptr));
    return reply ? QPoint(reply->root_x, reply->root_y) : QPoint();
}

void X11PointerBadge::selectMotion(bool selects)
{
    if (m_inputExtension == 0) {
        return;
    }
    struct
    {
        xcb_input_event_mask_t head;
        std::uint32_t mask;
    } const request{{XCB_INPUT_DEVICE_ALL, 1},
                    selects ? std::uint32_t{XCB_INPUT_XI_EVENT_MASK_RAW_MOTION} : 0};
    xcb_input_xi_select_events(m_connection.get(), m_connection.root(), 1, &request.head);
    m_subscription = selects ? m_connection.subscribe(*this) : XcbConnection::Subscription();
}

void X11PointerBadge::drawAt(QPoint pointer)
{
    const X11Screen screen = screenAt(m_connection, pointer);
    const QImage picture = m_draw(screen.scale);
    const QPoint distance = (offset * screen.scale).toPoint();
    const QPoint place(
        placeAlong(pointer.x(), distance.x(), picture.width(), screen.frame.x() + screen.frame.width()),
        placeAlong(pointer.y(), distance.y(), picture.height(), screen.frame.y() + screen.frame.height()));
    m_window->fit(picture, hasCompositor(m_connection));
    m_window->show(picture, place);
    m_window->raise();
}

} // namespace tintwick
