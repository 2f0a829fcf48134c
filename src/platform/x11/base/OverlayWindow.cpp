#include "OverlayWindow.h"

#include "XcbConnection.h"

#include <xcb/shape.h>

#include <cstdint>

namespace tintwick {

void makeOverlay(const XcbConnection& connection, xcb_window_t window, std::string_view title)
{
    constexpr std::string_view windowClass{"tintwick\0tintwick\0", 18};
    xcb_connection_t* c = connection.get();
    const auto setText = [&](xcb_atom_t property, xcb_atom_t type, std::string_view text) {
        xcb_change_property(c, XCB_PROP_MODE_REPLACE, window, property, type, 8,
                            static_cast<std::uint32_t>(text.size()), text.data());
    };
    setText(XCB_ATOM_WM_CLASS, XCB_ATOM_STRING, windowClass);
    setText(XCB_ATOM_WM_NAME, XCB_ATOM_STRING, title);
    setText(connection.atom("_NET_WM_NAME"), connection.atom("UTF8_STRING"), title);
    // Compositors neither fade in windows of this type nor draw shadows for them.
    const xcb_atom_t type = connection.atom("_NET_WM_WINDOW_TYPE_DND");
    xcb_change_property(c, XCB_PROP_MODE_REPLACE, window, connection.atom("_NET_WM_WINDOW_TYPE"),
                        XCB_ATOM_ATOM, 32, 1, &type);
    xcb_shape_rectangles(c, XCB_SHAPE_SO_SET, XCB_SHAPE_SK_INPUT, XCB_CLIP_ORDERING_UNSORTED, window, 0, 0, 0,
                         nullptr);
}

} // namespace tintwick
