#pragma once

#include "WindowStack.h"
#include "XcbConnection.h"
#include "XcbHandle.h"

#include <QImage>
#include <QRect>
#include <QRegion>
#include <QSize>

#include <cstdint>

namespace tintwick {

/// Composes a grab on the server, so that one reply brings all its pixels. All positions are in root coordinates; whatever
/// the depth of the screen, the canvas has eight bits for each component.
class GrabCanvas final
{
public:
    /// The connection must outlive the canvas.
    explicit GrabCanvas(XcbConnection& connection)
        : m_connection(connection)
    {
    }

    /// Begins a grab of this part of the root; returns false when it is empty or too large. The server keeps the largest
    /// canvas requested until this object is destroyed.
    [[nodiscard]] bool begin(const QRect& area);
    /// Limits the following drawing to a region.
    void clip(const QRegion& region);
    /// Fills the area with the colour of what no monitor shows.
    void fillDarkGray();
    /// Draws a picture that covers the root, such as a copy of the screen or a repeating background.
    void drawRootPicture(std::uint32_t picture, const QRect& area);
    /// Draws the part of a window in the area; `blends` says whether its alpha channel counts.
    void drawWindow(const StackedWindow& window, const QRect& area, bool blends);
    /// The finished grab (Format_RGB32); null when the server does not answer.
    [[nodiscard]] QImage read() const;

private:
    XcbConnection& m_connection;
    XcbPixmap m_pixmap;
    XcbPicture m_picture;
    QSize m_size;
    QRect m_area;
};

} // namespace tintwick
