#pragma once

#include "GrabCanvas.h"
#include "XcbConnection.h"
#include "XcbHandle.h"

#include <QSize>

namespace tintwick {

/// The whole screen as it was at one moment: a picture on the server, and a window that covers the screen with it, so
/// that what is shown is what is picked. The destructor uncovers the screen.
class FrozenScreen final
{
public:
    /// `canvas` is one like the root, with a picture of this size that begins at the root's top left corner. The
    /// connection must outlive this object.
    FrozenScreen(XcbConnection& connection, GrabCanvas canvas, QSize size);
    /// Replaces the picture, also where it is shown.
    void replace(GrabCanvas canvas, QSize size);

    [[nodiscard]] xcb_render_picture_t picture() const { return m_canvas.picture(); }
    /// Covers the screen below the given window, which may have been raised; above all windows when there is none.
    void show(xcb_window_t below);
    [[nodiscard]] bool isShown() const { return m_window.id() != XCB_WINDOW_NONE; }

private:
    XcbConnection& m_connection;
    GrabCanvas m_canvas;
    QSize m_size;
    XcbWindow m_window;
};

} // namespace tintwick
