#pragma once

#include "LoupeSurface.h"
#include "XcbConnection.h"
#include "XcbHandle.h"

#include <QImage>
#include <QSize>

#include <vector>

namespace tintwick {

class X11ScreenGrabber;

/// A small window that no window manager touches, above all others, through which every click falls. With a compositor
/// its translucent pixels blend; without one it is cut to the outline of its picture.
class X11LoupeSurface final : public LoupeSurface, private XcbConnection::Sink
{
public:
    X11LoupeSurface(XcbConnection& connection, X11ScreenGrabber& grabber);
    ~X11LoupeSurface() = default;

    /// What covers it is seen only while the grabber has a session.
    [[nodiscard]] SurfaceId id() const override { return m_window.id(); }
    void present(const QImage& picture, DesktopPoint topLeft) override;

private:
    void handleEvent(const xcb_generic_event_t& event) override;
    void eventsDrained() override;
    void createWindow();
    void setSize(const QSize& size);
    void cutToOutline(const QImage& picture);
    void upload(const QImage& picture);
    [[nodiscard]] const QImage& withHardEdges(const QImage& picture);

    XcbConnection& m_connection;
    X11ScreenGrabber& m_grabber;
    bool m_isComposited;
    XcbColormap m_colormap;
    XcbWindow m_window;
    XcbGraphicsContext m_gc;
    QSize m_size;
    QPoint m_place;
    std::uint8_t m_depth = 0;
    bool m_isMapped = false;
    bool m_isOvertaken = false;
    /// Indices of the pixels on the outline, which without a compositor must become opaque.
    std::vector<qsizetype> m_edgePixels;
    QImage m_hardEdged;
    XcbConnection::Subscription m_subscription;
};

} // namespace tintwick
