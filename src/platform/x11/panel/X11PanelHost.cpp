#include "X11PanelHost.h"

#include "ToolkitConnection.h"
#include "TranslucentVisual.h"

#include <QImage>
#include <QMargins>
#include <QWindow>

#include <array>
#include <string>

namespace tintwick {

namespace {

constexpr std::uint32_t allDesktops = 0xffffffff;
constexpr std::uint32_t neverUsed = 0; // as the time of the user's last action in the window

/// The window itself, or the frame that a window manager has put it in.
xcb_window_t childOfRoot(xcb_connection_t* c, xcb_window_t window, xcb_window_t root)
{
    while (true) {
        const XcbReply<xcb_query_tree_reply_t> tree(
            xcb_query_tree_reply(c, xcb_query_tree(c, window), nullptr));
        if (!tree || tree->parent == XCB_NONE) {
            return XCB_NONE;
        }
        if (tree->parent == root) {
            return window;
        }
        window = tree->parent;
    }
}

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

void X11PanelHost::showShadow(const QWindow& window, const QImage& picture, const QMargins& margins)
{
    xcb_connection_t* c = m_connection.get();
    const xcb_visualid_t visual = translucentVisual(m_connection.screen());
    if (!blendsWindows() || visual == m_connection.screen().root_visual) {
        return;
    }
    const auto id = static_cast<xcb_window_t>(window.winId());
    const XcbReply<xcb_translate_coordinates_reply_t> place(xcb_translate_coordinates_reply(
        c, xcb_translate_coordinates(c, id, m_connection.root(), 0, 0), nullptr));
    const xcb_window_t frame = childOfRoot(c, id, m_connection.root());
    if (!place || frame == XCB_NONE) {
        return;
    }
    if (!m_shadow) {
        m_shadow.emplace(m_connection, visual);
    }
    // Two would lie upon each other. Compositors look at the window that they paint: the frame, where there is one.
    declineShadow(m_connection, frame);
    m_shadow->showBelow(frame, picture, QPoint(place->dst_x - margins.left(), place->dst_y - margins.top()));
}

void X11PanelHost::hideShadow()
{
    if (m_shadow) {
        m_shadow->hide();
    }
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
