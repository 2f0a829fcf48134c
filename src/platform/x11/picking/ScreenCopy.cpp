#include "ScreenCopy.h"

#include "RenderFormats.h"

namespace tintwick {

namespace {

// The server copies a square of this side in less than a millisecond, so that a move waits for no longer.
constexpr int tileSide = 512;

} // namespace

ScreenCopy::ScreenCopy(const XcbConnection& connection, const QRegion& screens)
    : m_connection(connection)
    , m_pixmap(XcbPixmap::withNewId(connection.get()))
    , m_picture(XcbPicture::withNewId(connection.get()))
    , m_gc(XcbGraphicsContext::withNewId(connection.get()))
    , m_missing(screens)
{
    // Positions in the copy are those on the root window.
    const QRect bounds = screens.boundingRect();
    xcb_connection_t* c = connection.get();
    xcb_create_pixmap(c, connection.screen().root_depth, m_pixmap.id(), connection.root(),
                      static_cast<std::uint16_t>(bounds.right() + 1),
                      static_cast<std::uint16_t>(bounds.bottom() + 1));
    // With graphics exposures the server sends an event after each copy.
    const std::uint32_t gcValues[] = {XCB_SUBWINDOW_MODE_INCLUDE_INFERIORS, 1 /* graphics exposures */};
    xcb_create_gc(c, m_gc.id(), connection.root(), XCB_GC_SUBWINDOW_MODE | XCB_GC_GRAPHICS_EXPOSURES,
                  gcValues);
    xcb_render_create_picture(c, m_picture.id(), m_pixmap.id(), rootFormat(connection), 0, nullptr);
}

QRegion ScreenCopy::nextTile() const
{
    return m_missing.isEmpty() ? QRegion()
                               : m_missing & QRect(m_missing.begin()->topLeft(), QSize(tileSide, tileSide));
}

void ScreenCopy::copy(const QRegion& region)
{
    for (const QRect& rect : missing(region)) {
        const auto x = static_cast<std::int16_t>(rect.x());
        const auto y = static_cast<std::int16_t>(rect.y());
        m_lastRequest =
            xcb_copy_area(m_connection.get(), m_connection.root(), m_pixmap.id(), m_gc.id(), x, y, x, y,
                          static_cast<std::uint16_t>(rect.width()), static_cast<std::uint16_t>(rect.height()))
                .sequence;
    }
    m_missing -= region;
}

bool ScreenCopy::isFinishedBy(const xcb_generic_event_t& event) const
{
    const int type = event.response_type & 0x7f;
    // The second event is sent where the root window has become smaller.
    return (type == XCB_NO_EXPOSURE || type == XCB_GRAPHICS_EXPOSURE) && event.full_sequence == m_lastRequest;
}

xcb_render_pictformat_t rootFormat(const XcbConnection& connection)
{
    const xcb_render_pictforminfo_t* format =
        formatOfVisual(connection.get(), connection.screen().root_visual);
    return format ? format->id : xcb_render_pictformat_t{XCB_NONE};
}

} // namespace tintwick
