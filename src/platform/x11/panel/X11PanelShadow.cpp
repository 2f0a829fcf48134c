#include "X11PanelShadow.h"

#include "PutPicture.h"

#include <xcb/shape.h>

#include <array>

namespace tintwick {

namespace {

constexpr std::uint8_t depth = 32;

} // namespace

void declineShadow(XcbConnection& connection, xcb_window_t window)
{
    constexpr std::uint32_t none = 0;
    xcb_change_property(connection.get(), XCB_PROP_MODE_REPLACE, window, connection.atom("_COMPTON_SHADOW"),
                        XCB_ATOM_CARDINAL, 32, 1, &none);
}

X11PanelShadow::X11PanelShadow(XcbConnection& connection, xcb_visualid_t translucentVisual)
    : m_connection(connection)
    , m_colormap(XcbColormap::withNewId(connection.get()))
    , m_window(XcbWindow::withNewId(connection.get()))
{
    xcb_connection_t* c = connection.get();
    xcb_create_colormap(c, XCB_COLORMAP_ALLOC_NONE, m_colormap.id(), connection.root(), translucentVisual);
    const std::array<std::uint32_t, 3> values{0 /* border pixel */, 1 /* override redirect */,
                                              m_colormap.id()};
    xcb_create_window(c, depth, m_window.id(), connection.root(), 0, 0, 1, 1, 0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT, translucentVisual,
                      XCB_CW_BORDER_PIXEL | XCB_CW_OVERRIDE_REDIRECT | XCB_CW_COLORMAP, values.data());
    // Compositors do not fade in windows of this type.
    const xcb_atom_t type = connection.atom("_NET_WM_WINDOW_TYPE_DND");
    xcb_change_property(c, XCB_PROP_MODE_REPLACE, m_window.id(), connection.atom("_NET_WM_WINDOW_TYPE"),
                        XCB_ATOM_ATOM, 32, 1, &type);
    declineShadow(connection, m_window.id());
    xcb_shape_rectangles(c, XCB_SHAPE_SO_SET, XCB_SHAPE_SK_INPUT, XCB_CLIP_ORDERING_UNSORTED, m_window.id(),
                         0, 0, 0, nullptr);
}

void X11PanelShadow::showBelow(xcb_window_t window, QPoint topLeft)
{
    xcb_connection_t* c = m_connection.get();
    const std::array<std::uint32_t, 4> values{static_cast<std::uint32_t>(topLeft.x()),
                                              static_cast<std::uint32_t>(topLeft.y()), window,
                                              XCB_STACK_MODE_BELOW};
    xcb_configure_window(c, m_window.id(),
                         XCB_CONFIG_WINDOW_X | XCB_CONFIG_WINDOW_Y | XCB_CONFIG_WINDOW_SIBLING |
                             XCB_CONFIG_WINDOW_STACK_MODE,
                         values.data());
    xcb_map_window(c, m_window.id());
    m_connection.flush();
}

void X11PanelShadow::hide()
{
    xcb_unmap_window(m_connection.get(), m_window.id());
    m_connection.flush();
}

// As the background pixmap, which the server repaints without us.
void X11PanelShadow::setPicture(const QImage& picture)
{
    xcb_connection_t* c = m_connection.get();
    const auto pixmap = XcbPixmap::withNewId(c);
    const auto gc = XcbGraphicsContext::withNewId(c);
    xcb_create_pixmap(c, depth, pixmap.id(), m_window.id(), static_cast<std::uint16_t>(picture.width()),
                      static_cast<std::uint16_t>(picture.height()));
    xcb_create_gc(c, gc.id(), pixmap.id(), 0, nullptr);
    putPicture(c, pixmap.id(), gc.id(), depth, picture);
    const std::uint32_t background = pixmap.id();
    xcb_change_window_attributes(c, m_window.id(), XCB_CW_BACK_PIXMAP, &background);
    const std::array<std::uint32_t, 2> size{static_cast<std::uint32_t>(picture.width()),
                                            static_cast<std::uint32_t>(picture.height())};
    xcb_configure_window(c, m_window.id(), XCB_CONFIG_WINDOW_WIDTH | XCB_CONFIG_WINDOW_HEIGHT, size.data());
    xcb_clear_area(c, 0, m_window.id(), 0, 0, 0, 0);
}

} // namespace tintwick
