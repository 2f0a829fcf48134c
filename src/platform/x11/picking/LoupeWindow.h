#pragma once

#include "PictureWindow.h"
#include "XcbConnection.h"

#include <QImage>
#include <QPoint>

namespace tintwick {

class ScreenReader;

/// The window that shows the loupe. Stays above windows that open or are raised.
class LoupeWindow final : private XcbConnection::Sink
{
public:
    /// Both must outlive the window. The window is mapped with its first image.
    LoupeWindow(XcbConnection& connection, ScreenReader& reader);
    ~LoupeWindow() = default;

    /// Image (premultiplied ARGB32) and position change together; `topLeft` is in root coordinates.
    void show(const QImage& picture, QPoint topLeft);

    [[nodiscard]] xcb_window_t id() const { return m_window.id(); }

private:
    void handleEvent(const xcb_generic_event_t& event) override;
    void eventsDrained() override;

    XcbConnection& m_connection;
    ScreenReader& m_reader;
    bool m_isComposited;
    PictureWindow m_window;
    /// Whether another window is above this one.
    bool m_isCovered = false;
    XcbConnection::Subscription m_subscription;
};

} // namespace tintwick
