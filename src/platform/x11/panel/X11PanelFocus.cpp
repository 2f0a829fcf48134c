#include "X11PanelFocus.h"

#include <QGuiApplication>
#include <QWidget>
#include <QWindow>

#include <optional>
#include <utility>

namespace tintwick {

namespace {

constexpr std::uint32_t allDesktops = 0xffffffff;
/// The source of a _NET_ACTIVE_WINDOW request: an application.
constexpr std::uint32_t fromApplication = 1;

/// The first 32-bit value of a property; none without the property.
std::optional<std::uint32_t> value(const XcbConnection& connection, xcb_window_t window, const char* name)
{
    xcb_connection_t* c = connection.get();
    const XcbReply<xcb_get_property_reply_t> reply(xcb_get_property_reply(
        c, xcb_get_property(c, 0, window, connection.atom(name), XCB_GET_PROPERTY_TYPE_ANY, 0, 1), nullptr));
    if (!reply || reply->format != 32 || xcb_get_property_value_length(reply.get()) == 0) {
        return std::nullopt;
    }
    return *static_cast<const std::uint32_t*>(xcb_get_property_value(reply.get()));
}

} // namespace

void X11PanelFocus::take(QWidget& panel)
{
    const xcb_window_t active = activeWindow();
    if (active != panel.winId()) {
        m_previous = active;
    }
    // Window managers refuse a request that is older than the last input of the active window.
    m_clock.bringUpToDate();
    panel.activateWindow();
}

void X11PanelFocus::giveBack(const QWidget& panel)
{
    const xcb_window_t previous = std::exchange(m_previous, XCB_WINDOW_NONE);
    const bool hasFocus = QGuiApplication::focusWindow() == panel.windowHandle();
    if (hasFocus && previous != XCB_WINDOW_NONE && isOnScreen(previous)) {
        activate(previous);
    }
}

void X11PanelFocus::activate(xcb_window_t window) const
{
    xcb_connection_t* c = m_connection.get();
    const xcb_window_t root = m_connection.root();
    if (!value(m_connection, root, "_NET_ACTIVE_WINDOW")) {
        xcb_set_input_focus(c, XCB_INPUT_FOCUS_PARENT, window, XCB_CURRENT_TIME);
    } else {
        xcb_client_message_event_t request{};
        request.response_type = XCB_CLIENT_MESSAGE;
        request.format = 32;
        request.window = window;
        request.type = m_connection.atom("_NET_ACTIVE_WINDOW");
        request.data.data32[0] = fromApplication;
        xcb_send_event(c, 0, root, XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY,
                       reinterpret_cast<const char*>(&request));
    }
    m_connection.flush();
}

xcb_window_t X11PanelFocus::activeWindow() const
{
    if (const auto active = value(m_connection, m_connection.root(), "_NET_ACTIVE_WINDOW")) {
        return *active;
    }
    // Without a window manager.
    xcb_connection_t* c = m_connection.get();
    const XcbReply<xcb_get_input_focus_reply_t> focus(
        xcb_get_input_focus_reply(c, xcb_get_input_focus(c), nullptr));
    const bool isWindow = focus && focus->focus != XCB_INPUT_FOCUS_POINTER_ROOT;
    return isWindow ? focus->focus : xcb_window_t{XCB_WINDOW_NONE};
}

bool X11PanelFocus::isOnScreen(xcb_window_t window) const
{
    xcb_connection_t* c = m_connection.get();
    const XcbReply<xcb_get_window_attributes_reply_t> attributes(
        xcb_get_window_attributes_reply(c, xcb_get_window_attributes(c, window), nullptr));
    if (!attributes || attributes->map_state != XCB_MAP_STATE_VIEWABLE) {
        return false;
    }
    const auto desktop = value(m_connection, window, "_NET_WM_DESKTOP");
    return !desktop || *desktop == allDesktops ||
           desktop == value(m_connection, m_connection.root(), "_NET_CURRENT_DESKTOP");
}

} // namespace tintwick
