#pragma once

#include "XcbConnection.h"
#include "XcbHandle.h"

#include <QImage>
#include <QPoint>
#include <QSize>

#include <cstdint>
#include <vector>

namespace tintwick {

class ScreenReader;

/// The window that shows the loupe: not managed by a window manager, above all others, transparent to clicks. With a
/// compositor its translucent pixels blend. Without one it is shaped to the outline of its image.
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
    void createWindow();
    void setSize(const QSize& size);
    void cutToOutline(const QImage& picture);
    void upload(const QImage& picture);
    [[nodiscard]] const QImage& withHardEdges(const QImage& picture);

    XcbConnection& m_connection;
    ScreenReader& m_reader;
    bool m_isComposited;
    XcbColormap m_colormap;
    XcbWindow m_window;
    XcbGraphicsContext m_gc;
    QSize m_size;
    QPoint m_place;
    std::uint8_t m_depth = 0;
    bool m_isMapped = false;
    /// Whether another window is above this one.
    bool m_isCovered = false;
    /// Indices of the pixels on the outline, which must be opaque without a compositor.
    std::vector<qsizetype> m_edgePixels;
    QImage m_hardEdged;
    XcbConnection::Subscription m_subscription;
};

} // namespace tintwick
