#pragma once

#include "XcbConnection.h"
#include "XcbHandle.h"

#include <QImage>
#include <QPoint>

namespace tintwick {

/// Asks the compositor not to draw its own shadow for this child of the root window.
void declineShadow(XcbConnection& connection, xcb_window_t window);

/// An override-redirect window that shows a picture and passes all input through.
class X11PanelShadow final
{
public:
    /// `translucentVisual` has a depth of 32.
    X11PanelShadow(XcbConnection& connection, xcb_visualid_t translucentVisual);

    /// Sets the premultiplied picture and the window's size, whether it is visible or not.
    void setPicture(const QImage& picture);
    /// Shows the window directly below `window`, a child of the root. `topLeft` is in pixels of the root.
    void showBelow(xcb_window_t window, QPoint topLeft);
    void hide();

private:
    XcbConnection& m_connection;
    XcbColormap m_colormap;
    XcbWindow m_window;
};

} // namespace tintwick
