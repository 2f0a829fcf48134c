#include "platform/x11/X11PanelHost.h"

#include "platform/x11/ToolkitConnection.h"

#include <QWindow>

#include <array>
#include <string>

namespace tintwick {

namespace {

constexpr std::uint32_t allDesktops = 0xffffffff;
constexpr std::uint32_t neverUsed = 0; // as the time of the user's last action in the window

} // namespace

X11PanelHost::X11PanelHost(XcbConnection& connection)
    : m_connection(connection)
{
}

// Over the toolkit's connection, so that all of it arrives before the request to show the window.
void X11PanelHost::prepareToShow(QWindow& window)
{
    xcb_connection_t* c = toolkit::connection();
    if (!c) {
        return;
    }
    const auto id = static_cast<xcb_window_t>(window.winId());
    // A window manager takes the state off a window that is hidden. The toolkit keeps what it does not know.
    const std::array states{
        m_connection.atom("_NET_WM_STATE_ABOVE"), m_connection.atom("_NET_WM_STATE_STICKY"),
        m_connection.atom("_NET_WM_STATE_SKIP_TASKBAR"), m_connection.atom("_NET_WM_STATE_SKIP_PAGER")};
    xcb_change_property(c, XCB_PROP_MODE_REPLACE, id, m_connection.atom("_NET_WM_STATE"), XCB_ATOM_ATOM, 32,
                        static_cast<std::uint32_t>(states.size()), states.data());
    xcb_change_property(c, XCB_PROP_MODE_REPLACE, id, m_connection.atom("_NET_WM_DESKTOP"), XCB_ATOM_CARDINAL,
                        32, 1, &allDesktops);
    xcb_change_property(c, XCB_PROP_MODE_REPLACE, id, m_connection.atom("_NET_WM_USER_TIME"),
                        XCB_ATOM_CARDINAL, 32, 1, &neverUsed);
}

bool X11PanelHost::blendsWindows() const
{
    // Each compositor owns this selection while it runs.
    const std::string name = "_NET_WM_CM_S" + std::to_string(m_connection.screenNumber());
    xcb_connection_t* c = m_connection.get();
    const XcbReply<xcb_get_selection_owner_reply_t> reply(
        xcb_get_selection_owner_reply(c, xcb_get_selection_owner(c, m_connection.atom(name)), nullptr));
    return reply && reply->owner != XCB_NONE;
}

} // namespace tintwick
