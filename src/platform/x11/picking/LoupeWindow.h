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

/// The window that shows the loupe: not managed by any window manager, above all others, open to every click. With a
/// compositor its translucent pixels blend; without one it is cut to the outline of its picture.
class LoupeWindow final : private XcbConnection::Sink
{
public:
    /// Both must outlive the window, which is mapped with its first picture.
    LoupeWindow(XcbConnection& connection, ScreenReader& reader);
    ~LoupeWindow() = default;

    /// Picture (premultiplied ARGB32) and place change together; `topLeft` is in root coordinates.
    void show(const QImage& picture, QPoint topLeft);

private:
    void handleEvent(const xcb_generic_event_t& event) override;
    void eventsDrained() override;
    void createWindow();
    void setProperties() const;
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
    /// Whether another window has come above this one.
    bool m_isCovered = false;
    /// Indices of the pixels on the outline, which without a compositor must become opaque.
    std::vector<qsizetype> m_edgePixels;
    QImage m_hardEdged;
    XcbConnection::Subscription m_subscription;
};

} // namespace tintwick
