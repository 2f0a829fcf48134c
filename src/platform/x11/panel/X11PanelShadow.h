#pragma once

#include "XcbConnection.h"
#include "XcbHandle.h"

#include <QImage>
#include <QPoint>

namespace tintwick {

/// Tells a compositor that draws shadows of its own to draw none for this child of the root.
void declineShadow(XcbConnection& connection, xcb_window_t window);

/// A picture on the desktop that is nothing else: no window manager touches it, and every click falls through it.
class X11PanelShadow final
{
public:
    /// On a screen that can show translucent windows.
    X11PanelShadow(XcbConnection& connection, xcb_visualid_t translucentVisual);

    /// Puts the premultiplied picture below another window of the desktop, both of them children of the root.
    void showBelow(xcb_window_t window, const QImage& picture, QPoint topLeft);
    void hide();

private:
    void setPicture(const QImage& picture);

    XcbConnection& m_connection;
    XcbColormap m_colormap;
    XcbWindow m_window;
};

} // namespace tintwick
