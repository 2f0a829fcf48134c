#include "GrabCanvas.h"

#include "RenderFormats.h"
#include "ScreenCopy.h"

#include <xcb/render.h>

#include <cstring>
#include <vector>

namespace tintwick {

namespace {

constexpr xcb_render_color_t darkGrayPixel{0x5555, 0x5555, 0x5555, 0xffff};

xcb_rectangle_t toXcb(const QRect& rect)
{
    return {static_cast<std::int16_t>(rect.x()), static_cast<std::int16_t>(rect.y()),
            static_cast<std::uint16_t>(rect.width()), static_cast<std::uint16_t>(rect.height())};
}

} // namespace

GrabCanvas::GrabCanvas(XcbConnection& connection)
    : GrabCanvas(connection, translucentDepth, formatOfDepth(connection.get(), translucentDepth))
{
}

GrabCanvas::GrabCanvas(XcbConnection& connection, std::uint8_t depth, xcb_render_pictformat_t format)
    : m_connection(&connection)
    , m_depth(depth)
    , m_format(format)
{
}

GrabCanvas GrabCanvas::likeTheRoot(XcbConnection& connection)
{
    return {connection, connection.screen().root_depth, rootFormat(connection)};
}

bool GrabCanvas::begin(const QRect& area)
{
    m_area = area;
    const QSize wanted = m_size.expandedTo(area.size());
    if (m_picture && wanted == m_size) {
        return true;
    }
    constexpr int maximumSide = 0x7fff;
    if (area.isEmpty() || wanted.width() > maximumSide || wanted.height() > maximumSide) {
        return false;
    }
    xcb_connection_t* c = m_connection->get();
    m_size = wanted;
    m_pixmap = XcbPixmap::withNewId(c);
    xcb_create_pixmap(c, m_depth, m_pixmap.id(), m_connection->root(),
                      static_cast<std::uint16_t>(wanted.width()),
                      static_cast<std::uint16_t>(wanted.height()));
    m_picture = XcbPicture::withNewId(c);
    xcb_render_create_picture(c, m_picture.id(), m_pixmap.id(), m_format, 0, nullptr);
    return true;
}

void GrabCanvas::clip(const QRegion& region)
{
    std::vector<xcb_rectangle_t> rectangles;
    rectangles.reserve(static_cast<std::size_t>(region.rectCount()));
    for (const QRect& rect : region) {
        rectangles.push_back(toXcb(rect.translated(-m_area.topLeft())));
    }
    xcb_render_set_picture_clip_rectangles(m_connection->get(), m_picture.id(), 0, 0,
                                           static_cast<std::uint32_t>(rectangles.size()), rectangles.data());
}

void GrabCanvas::fillDarkGray()
{
    const xcb_rectangle_t all = toXcb(QRect(QPoint(0, 0), m_area.size()));
    xcb_render_fill_rectangles(m_connection->get(), XCB_RENDER_PICT_OP_SRC, m_picture.id(), darkGrayPixel, 1,
                               &all);
}

void GrabCanvas::drawRootPicture(std::uint32_t picture, const QRect& area)
{
    xcb_render_composite(m_connection->get(), XCB_RENDER_PICT_OP_SRC, picture, XCB_NONE, m_picture.id(),
                         static_cast<std::int16_t>(area.x()), static_cast<std::int16_t>(area.y()), 0, 0,
                         static_cast<std::int16_t>(area.x() - m_area.x()),
                         static_cast<std::int16_t>(area.y() - m_area.y()),
                         static_cast<std::uint16_t>(area.width()), static_cast<std::uint16_t>(area.height()));
}

void GrabCanvas::drawWindow(const StackedWindow& window, const QRect& area, bool blends)
{
    const QRect part = area & window.frame;
    xcb_render_composite(
        m_connection->get(), blends ? XCB_RENDER_PICT_OP_OVER : XCB_RENDER_PICT_OP_SRC, window.picture.id(),
        XCB_NONE, m_picture.id(), static_cast<std::int16_t>(part.x() - window.frame.x()),
        static_cast<std::int16_t>(part.y() - window.frame.y()), 0, 0,
        static_cast<std::int16_t>(part.x() - m_area.x()), static_cast<std::int16_t>(part.y() - m_area.y()),
        static_cast<std::uint16_t>(part.width()), static_cast<std::uint16_t>(part.height()));
}

QImage GrabCanvas::read() const
{
    xcb_connection_t* c = m_connection->get();
    const auto cookie = xcb_get_image(c, XCB_IMAGE_FORMAT_Z_PIXMAP, m_pixmap.id(), 0, 0,
                                      static_cast<std::uint16_t>(m_area.width()),
                                      static_cast<std::uint16_t>(m_area.height()), ~0U);
    const XcbReply<xcb_get_image_reply_t> reply(xcb_get_image_reply(c, cookie, nullptr));
    const qsizetype bytes = qsizetype{4} * m_area.width() * m_area.height();
    if (!reply || xcb_get_image_data_length(reply.get()) < bytes) {
        return {};
    }
    QImage image(m_area.size(), QImage::Format_RGB32);
    std::memcpy(image.bits(), xcb_get_image_data(reply.get()), static_cast<std::size_t>(bytes));
    // Without a compositor the colours of a translucent window are shown opaque.
    auto* pixels = reinterpret_cast<QRgb*>(image.bits());
    for (qsizetype i = 0; i < bytes / 4; ++i) {
        pixels[i] |= 0xff000000;
    }
    return image;
}

} // namespace tintwick
