#pragma once

#include "ScreenGrabber.h"
#include "WindowStack.h"
#include "XcbConnection.h"
#include "XcbHandle.h"

#include <QRect>
#include <QRegion>

#include <optional>

namespace tintwick {

/// Where a grab is put together on the server, so that one answer brings all its pixels. All positions are in root
/// coordinates; whatever the depth of the screen, the canvas has eight bits for each component.
class GrabCanvas final
{
public:
    /// The connection must outlive the canvas.
    explicit GrabCanvas(XcbConnection& connection)
        : m_connection(connection)
    {
    }

    /// Begins a grab of this part of the root; false when it is too large. The server keeps the largest canvas asked for.
    [[nodiscard]] bool begin(const QRect& area);
    /// Forgets what the server keeps.
    void release();

    /// Where the following drawing takes effect.
    void clip(const QRegion& region);
    /// The colour of what no monitor shows.
    void fillDarkGray();
    /// A picture that covers the root, such as a copy of the screen or a repeating background.
    void drawRootPicture(std::uint32_t picture, const QRect& area);
    void drawWindow(const StackedWindow& window, const QRect& area, bool blends);

    /// The finished grab; none when the server does not answer.
    [[nodiscard]] std::optional<ScreenImage> read() const;

private:
    XcbConnection& m_connection;
    XcbPixmap m_pixmap;
    XcbPicture m_picture;
    QSize m_size;
    QRect m_area;
};

} // namespace tintwick
