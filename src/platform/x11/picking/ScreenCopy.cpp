#include "ScreenCopy.h"

#include "RenderFormats.h"

namespace tintwick {

ScreenCopy::ScreenCopy(const XcbConnection& connection, QSize size)
    : m_pixmap(XcbPixmap::withNewId(connection.get()))
    , m_picture(XcbPicture::withNewId(connection.get()))
{
    xcb_connection_t* c = connection.get();
    const auto width = static_cast<std::uint16_t>(size.width());
    const auto height = static_cast<std::uint16_t>(size.height());
    xcb_create_pixmap(c, connection.screen().root_depth, m_pixmap.id(), connection.root(), width, height);
    const auto gc = XcbGraphicsContext::withNewId(c);
    const std::uint32_t gcValues[] = {XCB_SUBWINDOW_MODE_INCLUDE_INFERIORS, 0 /* no exposure events */};
    xcb_create_gc(c, gc.id(), connection.root(), XCB_GC_SUBWINDOW_MODE | XCB_GC_GRAPHICS_EXPOSURES, gcValues);
    m_sequence =
        xcb_copy_area(c, connection.root(), m_pixmap.id(), gc.id(), 0, 0, 0, 0, width, height).sequence;
    xcb_render_create_picture(c, m_picture.id(), m_pixmap.id(), rootFormat(connection), 0, nullptr);
}

xcb_render_pictformat_t rootFormat(const XcbConnection& connection)
{
    const xcb_render_pictforminfo_t* format =
        formatOfVisual(connection.get(), connection.screen().root_visual);
    return format ? format->id : xcb_render_pictformat_t{XCB_NONE};
}

} // namespace tintwick
