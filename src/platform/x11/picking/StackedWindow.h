#pragma once

#include "XcbConnection.h"
#include "XcbHandle.h"

#include <QRect>
#include <QRegion>

#include <xcb/render.h>

#include <vector>

namespace tintwick {

/// One child of the root window, with borders: frames of the window manager, menus, panels, the desktop.
struct StackedWindow
{
    xcb_window_t id = XCB_WINDOW_NONE;
    /// Outer geometry, borders included, in root coordinates.
    QRect frame;
    int border = 0;
    bool isMapped = false;
    /// True for our own windows, the server's own and input-only windows. They are part of the order and have no image.
    bool showsNothing = false;
    /// Windows below this one are not shown although they are mapped.
    bool isGuard = false;
    xcb_render_pictformat_t format = XCB_NONE;
    bool hasAlpha = false;
    bool isShaped = false;
    /// Reports what is drawn in the window.
    XcbDamage damage;
    /// Whether the server keeps the complete content for us, also where other windows cover it.
    bool isRedirected = false;
    /// The content, read on first use; none where the server has none.
    XcbPixmap pixmap;
    XcbPicture picture;
    /// The part of the frame that a shaped window shows, from the frame's top left corner; read with the content.
    QRegion shape;
    bool contentIsMissing = false;

    [[nodiscard]] bool isVisible() const { return isMapped && !showsNothing; }
    [[nodiscard]] bool isOpaque() const { return !hasAlpha && !isShaped; }
};

/// The frame with the room around it in which a compositor may draw the window's shadow.
[[nodiscard]] QRect withShadow(const QRect& frame);

/// The frame of a window with this geometry, whose border is outside of it.
[[nodiscard]] QRect outerFrame(int x, int y, int width, int height, int border);

/// Reads everything but the content of all these windows, of which only the ids need to be known, with one round trip.
void describe(const XcbConnection& connection, const std::vector<StackedWindow*>& windows);

} // namespace tintwick
