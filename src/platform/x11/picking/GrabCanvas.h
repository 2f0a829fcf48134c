#pragma once

#include "StackedWindow.h"
#include "XcbConnection.h"
#include "XcbHandle.h"

#include <QImage>
#include <QRect>
#include <QRegion>
#include <QSize>

#include <cstdint>

namespace tintwick {

/// Composes a grab on the server, so that one reply contains all its pixels. All positions are in root coordinates. By
/// default the canvas has eight bits per component, independent of the screen's depth.
class GrabCanvas final
{
public:
    /// The connection must outlive the canvas.
    explicit GrabCanvas(XcbConnection& connection);
    /// A canvas with the depth of the root window, which a window can show; it cannot be read.
    [[nodiscard]] static GrabCanvas likeTheRoot(XcbConnection& connection);

    /// Begins a grab of this part of the root; returns false when it is empty or too large. The server keeps the
    /// largest canvas requested until this object is destroyed.
    [[nodiscard]] bool begin(const QRect& area);
    /// Limits the following drawing to a region.
    void clip(const QRegion& region);
    /// Fills the area with the colour of pixels outside all monitors.
    void fillDarkGray();
    /// Draws a picture that covers the root, such as a copy of the screen or a repeating background.
    void drawRootPicture(std::uint32_t picture, const QRect& area);
    /// Draws the part of a window inside the area. The window's alpha channel is used only when `blends` is true.
    void drawWindow(const StackedWindow& window, const QRect& area, bool blends);
    /// The drawn area, from its top left corner.
    [[nodiscard]] xcb_render_picture_t picture() const { return m_picture.id(); }
    [[nodiscard]] xcb_pixmap_t pixmap() const { return m_pixmap.id(); }
    /// The finished grab (Format_RGB32); null when the server does not reply.
    [[nodiscard]] QImage read() const;

private:
    GrabCanvas(XcbConnection& connection, std::uint8_t depth, xcb_render_pictformat_t format);

    XcbConnection* m_connection;
    std::uint8_t m_depth;
    xcb_render_pictformat_t m_format;
    XcbPixmap m_pixmap;
    XcbPicture m_picture;
    QSize m_size;
    QRect m_area;
};

} // namespace tintwick
