#include "X11Reservations.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace tintwick {

namespace {

using Edge = Strut::Edge;

/// _NET_WM_STRUT has the four depths; _NET_WM_STRUT_PARTIAL has the start and the end of each as well.
constexpr std::size_t depthCount = 4;
constexpr std::size_t partialCount = 12;
constexpr std::array<Edge, depthCount> edges{Edge::Left, Edge::Right, Edge::Top, Edge::Bottom};

xcb_get_property_cookie_t request(const XcbConnection& connection, xcb_window_t window, const char* name)
{
    constexpr std::uint32_t longest = 4096;
    return xcb_get_property(connection.get(), 0, window, connection.atom(name), XCB_GET_PROPERTY_TYPE_ANY, 0,
                            longest);
}

/// The 32-bit values of a property; none without it.
std::vector<std::uint32_t> values(const XcbConnection& connection, xcb_get_property_cookie_t cookie)
{
    const XcbReply<xcb_get_property_reply_t> reply(xcb_get_property_reply(connection.get(), cookie, nullptr));
    if (!reply || reply->format != 32) {
        return {};
    }
    const auto* first = static_cast<const std::uint32_t*>(xcb_get_property_value(reply.get()));
    return {first, first + reply->value_len};
}

std::vector<std::uint32_t> rootValues(const XcbConnection& connection, const char* name)
{
    return values(connection, request(connection, connection.root(), name));
}

/// The managed windows, and the children of the root for bars that are not managed.
std::vector<xcb_window_t> candidates(const XcbConnection& connection)
{
    xcb_connection_t* c = connection.get();
    std::vector<xcb_window_t> windows = rootValues(connection, "_NET_CLIENT_LIST");
    const XcbReply<xcb_query_tree_reply_t> tree(
        xcb_query_tree_reply(c, xcb_query_tree(c, connection.root()), nullptr));
    if (tree) {
        const xcb_window_t* children = xcb_query_tree_children(tree.get());
        windows.insert(windows.end(), children, children + xcb_query_tree_children_length(tree.get()));
    }
    std::sort(windows.begin(), windows.end());
    windows.erase(std::unique(windows.begin(), windows.end()), windows.end());
    return windows;
}

void append(std::vector<Strut>& struts, const std::vector<std::uint32_t>& values)
{
    for (std::size_t i = 0; i < depthCount && values.size() >= depthCount; ++i) {
        Strut strut{edges[i], static_cast<int>(values[i])};
        if (values.size() >= partialCount) {
            strut.start = static_cast<int>(values[depthCount + 2 * i]);
            strut.end = static_cast<int>(values[depthCount + 2 * i + 1]);
        }
        if (strut.depth > 0) {
            struts.push_back(strut);
        }
    }
}

std::vector<Strut> queryStruts(const XcbConnection& connection)
{
    xcb_connection_t* c = connection.get();
    struct Cookies
    {
        xcb_get_window_attributes_cookie_t attributes;
        xcb_get_property_cookie_t partial;
        xcb_get_property_cookie_t plain;
    };
    // All requests are sent before the first reply is read.
    std::vector<Cookies> cookies;
    for (const xcb_window_t window : candidates(connection)) {
        cookies.push_back({xcb_get_window_attributes(c, window),
                           request(connection, window, "_NET_WM_STRUT_PARTIAL"),
                           request(connection, window, "_NET_WM_STRUT")});
    }
    std::vector<Strut> struts;
    for (const Cookies& cookie : cookies) {
        const XcbReply<xcb_get_window_attributes_reply_t> attributes(
            xcb_get_window_attributes_reply(c, cookie.attributes, nullptr));
        const auto partial = values(connection, cookie.partial);
        const auto plain = values(connection, cookie.plain);
        if (attributes && attributes->map_state == XCB_MAP_STATE_VIEWABLE) {
            append(struts, partial.size() >= partialCount ? partial : plain);
        }
    }
    return struts;
}

QRect queryWorkArea(const XcbConnection& connection)
{
    const auto desktop = rootValues(connection, "_NET_CURRENT_DESKTOP");
    const auto areas = rootValues(connection, "_NET_WORKAREA");
    const std::size_t first = desktop.empty() ? 0 : desktop.front() * std::size_t{4};
    if (areas.size() < first + 4) {
        return {};
    }
    return {static_cast<int>(areas[first]), static_cast<int>(areas[first + 1]),
            static_cast<int>(areas[first + 2]), static_cast<int>(areas[first + 3])};
}

} // namespace

X11Reservations queryReservations(const XcbConnection& connection)
{
    xcb_connection_t* c = connection.get();
    const XcbReply<xcb_get_geometry_reply_t> root(
        xcb_get_geometry_reply(c, xcb_get_geometry(c, connection.root()), nullptr));
    if (!root) {
        return {};
    }
    return {QSize(root->width, root->height), queryWorkArea(connection), queryStruts(connection)};
}

} // namespace tintwick
