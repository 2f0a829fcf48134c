#include "StackedWindow.h"

#include "ClientResources.h"
#include "RenderFormats.h"

#include <xcb/shape.h>

#include <cstdint>
#include <string_view>

namespace tintwick {

namespace {

// A compositor may draw a shadow this far around a window, in pixels.
constexpr int shadowExtent = 48;

// The server's own windows are the composite overlay and the screen saver.
bool isFromServer(xcb_window_t id, const xcb_setup_t& anyClient)
{
    return (id & ~anyClient.resource_id_mask) == 0;
}

// Some window managers keep minimised windows and those of other workspaces mapped, below an input-only window with
// this name.
bool isGuardWindow(xcb_connection_t* c, xcb_window_t id)
{
    constexpr std::uint32_t longestName = 16; // in units of four bytes
    const auto cookie = xcb_get_property(c, 0, id, XCB_ATOM_WM_NAME, XCB_ATOM_ANY, 0, longestName);
    const XcbReply<xcb_get_property_reply_t> name(xcb_get_property_reply(c, cookie, nullptr));
    return name && std::string_view(static_cast<const char*>(xcb_get_property_value(name.get())),
                                    static_cast<std::size_t>(xcb_get_property_value_length(name.get())))
                       .ends_with("guard window");
}

} // namespace

QRect withShadow(const QRect& frame)
{
    return frame.adjusted(-shadowExtent, -shadowExtent, shadowExtent, shadowExtent);
}

QRect outerFrame(int x, int y, int width, int height, int border)
{
    return {x, y, width + 2 * border, height + 2 * border};
}

void describe(const XcbConnection& connection, const std::vector<StackedWindow*>& windows)
{
    struct Questions
    {
        xcb_get_window_attributes_cookie_t attributes;
        xcb_get_geometry_cookie_t geometry;
        xcb_shape_query_extents_cookie_t shape;
    };
    xcb_connection_t* c = connection.get();
    std::vector<Questions> questions;
    questions.reserve(windows.size());
    for (const StackedWindow* window : windows) {
        questions.push_back({xcb_get_window_attributes(c, window->id), xcb_get_geometry(c, window->id),
                             xcb_shape_query_extents(c, window->id)});
    }
    for (std::size_t i = 0; i < windows.size(); ++i) {
        StackedWindow& window = *windows[i];
        const XcbReply<xcb_get_window_attributes_reply_t> attributes(
            xcb_get_window_attributes_reply(c, questions[i].attributes, nullptr));
        const XcbReply<xcb_get_geometry_reply_t> geometry(
            xcb_get_geometry_reply(c, questions[i].geometry, nullptr));
        const XcbReply<xcb_shape_query_extents_reply_t> shape(
            xcb_shape_query_extents_reply(c, questions[i].shape, nullptr));
        if (!attributes || !geometry || !shape) {
            window.showsNothing = true;
            continue;
        }
        const xcb_render_pictforminfo_t* format = formatOfVisual(c, attributes->visual);
        const xcb_setup_t& setup = *xcb_get_setup(c);
        window.border = geometry->border_width;
        window.frame = outerFrame(geometry->x, geometry->y, geometry->width, geometry->height, window.border);
        window.isMapped = attributes->map_state == XCB_MAP_STATE_VIEWABLE;
        window.showsNothing = attributes->_class == XCB_WINDOW_CLASS_INPUT_ONLY || !format ||
                              isFromClient(window.id, setup) || isFromServer(window.id, setup);
        window.format = format ? format->id : XCB_NONE;
        window.isGuard = attributes->_class == XCB_WINDOW_CLASS_INPUT_ONLY && isGuardWindow(c, window.id);
        window.hasAlpha = format && format->direct.alpha_mask != 0;
        window.isShaped = shape->bounding_shaped != 0;
    }
}

} // namespace tintwick
