#include "FrozenScreen.h"

#include "OverlayWindow.h"

#include <array>
#include <cstdint>
#include <utility>

namespace tintwick {

FrozenScreen::FrozenScreen(XcbConnection& connection, GrabCanvas canvas, QSize size)
    : m_connection(connection)
    , m_canvas(std::move(canvas))
    , m_size(size)
{
}

void FrozenScreen::replace(GrabCanvas canvas, QSize size)
{
    m_canvas = std::move(canvas);
    m_size = size;
    if (!isShown()) {
        return;
    }
    xcb_connection_t* c = m_connection.get();
    const std::array<std::uint32_t, 2> sides{static_cast<std::uint32_t>(size.width()),
                                             static_cast<std::uint32_t>(size.height())};
    xcb_configure_window(c, m_window.id(), XCB_CONFIG_WINDOW_WIDTH | XCB_CONFIG_WINDOW_HEIGHT, sides.data());
    const xcb_pixmap_t pixmap = m_canvas.pixmap();
    xcb_change_window_attributes(c, m_window.id(), XCB_CW_BACK_PIXMAP, &pixmap);
    xcb_clear_area(c, 0, m_window.id(), 0, 0, 0, 0);
}

void FrozenScreen::show(xcb_window_t below)
{
    xcb_connection_t* c = m_connection.get();
    const bool isNew = !isShown();
    if (isNew) {
        m_window = XcbWindow::withNewId(c);
        const std::array<std::uint32_t, 2> values{m_canvas.pixmap(), 1 /* override redirect */};
        xcb_create_window(c, XCB_COPY_FROM_PARENT, m_window.id(), m_connection.root(), 0, 0,
                          static_cast<std::uint16_t>(m_size.width()),
                          static_cast<std::uint16_t>(m_size.height()), 0, XCB_WINDOW_CLASS_INPUT_OUTPUT,
                          XCB_COPY_FROM_PARENT, XCB_CW_BACK_PIXMAP | XCB_CW_OVERRIDE_REDIRECT, values.data());
        makeOverlay(m_connection, m_window.id(), "Tintwick Frozen Screen");
    }
    if (below != XCB_WINDOW_NONE) {
        const std::array<std::uint32_t, 2> order{below, XCB_STACK_MODE_BELOW};
        xcb_configure_window(c, m_window.id(), XCB_CONFIG_WINDOW_SIBLING | XCB_CONFIG_WINDOW_STACK_MODE,
                             order.data());
    }
    if (isNew) {
        xcb_map_window(c, m_window.id());
    }
    m_connection.flush();
}

} // namespace tintwick
