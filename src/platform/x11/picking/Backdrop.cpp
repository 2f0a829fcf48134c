#include "Backdrop.h"

#include "RenderFormats.h"

namespace tintwick {

namespace {

constexpr std::uint32_t repeat = XCB_RENDER_REPEAT_NORMAL;
constexpr xcb_render_color_t black{0, 0, 0, 0xffff};

} // namespace

Backdrop::Backdrop(const XcbConnection& connection, const ScreenCopy& copy, std::optional<QPoint> bareSpot)
    : m_picture(XcbPicture::withNewId(connection.get()))
{
    if (!useWallpaper(connection)) {
        useOneColor(connection, copy, bareSpot);
    }
}

bool Backdrop::useWallpaper(const XcbConnection& connection)
{
    xcb_connection_t* c = connection.get();
    const auto propertyCookie =
        xcb_get_property(c, 0, connection.root(), wallpaperProperty(connection), XCB_ATOM_PIXMAP, 0, 1);
    const XcbReply<xcb_get_property_reply_t> property(xcb_get_property_reply(c, propertyCookie, nullptr));
    if (!property || property->format != 32 || xcb_get_property_value_length(property.get()) != 4) {
        return false;
    }
    const auto pixmap = *static_cast<const xcb_pixmap_t*>(xcb_get_property_value(property.get()));
    const XcbReply<xcb_get_geometry_reply_t> geometry(
        xcb_get_geometry_reply(c, xcb_get_geometry(c, pixmap), nullptr));
    const bool isLikeTheRoot = geometry && geometry->depth == connection.screen().root_depth;
    if (!isLikeTheRoot && (!geometry || geometry->depth != translucentDepth)) {
        return false;
    }
    const xcb_render_pictformat_t format =
        isLikeTheRoot ? rootFormat(connection) : formatOfDepth(c, translucentDepth);
    xcb_render_create_picture(c, m_picture.id(), pixmap, format, XCB_RENDER_CP_REPEAT, &repeat);
    return true;
}

void Backdrop::useOneColor(const XcbConnection& connection, const ScreenCopy& copy,
                           std::optional<QPoint> bareSpot)
{
    xcb_connection_t* c = connection.get();
    m_pixmap = XcbPixmap::withNewId(c);
    xcb_create_pixmap(c, translucentDepth, m_pixmap.id(), connection.root(), 1, 1);
    xcb_render_create_picture(c, m_picture.id(), m_pixmap.id(), formatOfDepth(c, translucentDepth),
                              XCB_RENDER_CP_REPEAT, &repeat);
    if (bareSpot) {
        xcb_render_composite(c, XCB_RENDER_PICT_OP_SRC, copy.picture(), XCB_NONE, m_picture.id(),
                             static_cast<std::int16_t>(bareSpot->x()),
                             static_cast<std::int16_t>(bareSpot->y()), 0, 0, 0, 0, 1, 1);
    } else {
        const xcb_rectangle_t pixel{0, 0, 1, 1};
        xcb_render_fill_rectangles(c, XCB_RENDER_PICT_OP_SRC, m_picture.id(), black, 1, &pixel);
    }
}

xcb_atom_t wallpaperProperty(const XcbConnection& connection)
{
    return connection.atom("_XROOTPMAP_ID");
}

} // namespace tintwick
