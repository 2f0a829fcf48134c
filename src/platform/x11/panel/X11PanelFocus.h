#pragma once

#include "ToolkitConnection.h"
#include "XcbConnection.h"

class QWidget;

namespace tintwick {

/// Gives the panel the keyboard focus, and gives it back to the window that had it.
class X11PanelFocus final
{
public:
    explicit X11PanelFocus(const XcbConnection& connection)
        : m_connection(connection)
    {
    }

    /// Remembers the active window and activates the panel, as soon as it is mapped.
    void take(QWidget& panel);
    /// Activates the remembered window if the panel still has the focus. Does nothing when that window is gone, hidden
    /// or on another workspace.
    void giveBack(const QWidget& panel);
    /// The window manager has chosen the next active window.
    void forget() { m_previous = XCB_WINDOW_NONE; }

private:
    void activate(xcb_window_t window) const;
    /// None while no window is active.
    [[nodiscard]] xcb_window_t activeWindow() const;
    [[nodiscard]] bool isOnScreen(xcb_window_t window) const;

    const XcbConnection& m_connection;
    toolkit::Clock m_clock;
    xcb_window_t m_previous = XCB_WINDOW_NONE;
};

} // namespace tintwick
