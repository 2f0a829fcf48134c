#pragma once

#include "XcbConnection.h"
#include "XcbHandle.h"

#include <QSize>

#include <cstdint>

namespace tintwick {

/// A copy of the whole screen on the server, made by the constructor. It includes what only a compositor draws. Its
/// pixels are not transferred to the client.
class ScreenCopy final
{
public:
    /// Copies the root window from its top left corner. Only queues the requests.
    ScreenCopy(const XcbConnection& connection, QSize size);

    [[nodiscard]] xcb_render_picture_t picture() const { return m_picture.id(); }
    /// The sequence number of the copy request. The copy contains everything drawn before it.
    [[nodiscard]] std::uint32_t sequence() const { return m_sequence; }

private:
    XcbPixmap m_pixmap;
    XcbPicture m_picture;
    std::uint32_t m_sequence = 0;
};

/// The Render format of the root window; none when the server has none.
[[nodiscard]] xcb_render_pictformat_t rootFormat(const XcbConnection& connection);

} // namespace tintwick
