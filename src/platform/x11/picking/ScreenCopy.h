#pragma once

#include "XcbConnection.h"
#include "XcbHandle.h"

#include <QRegion>

#include <cstdint>

namespace tintwick {

/// A copy of the screen on the server. It includes what only a compositor draws. Its pixels are not transferred to the
/// client. The parts are copied one after another, because a copy of a large screen takes longer than a frame. All
/// regions are in root coordinates.
class ScreenCopy final
{
public:
    /// Copies nothing yet; `screens` is not empty. The connection must outlive the copy.
    ScreenCopy(const XcbConnection& connection, const QRegion& screens);

    /// The parts of this region that copy() would copy.
    [[nodiscard]] QRegion missing(const QRegion& region) const { return m_missing & region; }
    /// The next part of limited size that is not copied yet; empty when the copy is complete.
    [[nodiscard]] QRegion nextTile() const;
    /// Copies those parts of the root window that are not copied yet. Only queues the requests.
    void copy(const QRegion& region);
    /// Whether the event reports that the server has finished the last copy().
    [[nodiscard]] bool isFinishedBy(const xcb_generic_event_t& event) const;

    [[nodiscard]] xcb_render_picture_t picture() const { return m_picture.id(); }

private:
    const XcbConnection& m_connection;
    XcbPixmap m_pixmap;
    XcbPicture m_picture;
    XcbGraphicsContext m_gc;
    QRegion m_missing;
    /// The sequence number of the last copy request.
    std::uint32_t m_lastRequest = 0;
};

/// The Render format of the root window; none when the server has none.
[[nodiscard]] xcb_render_pictformat_t rootFormat(const XcbConnection& connection);

} // namespace tintwick
