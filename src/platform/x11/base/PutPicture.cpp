#include "PutPicture.h"

#include <QImage>

#include <algorithm>

namespace tintwick {

void putPicture(xcb_connection_t* connection, xcb_drawable_t drawable, xcb_gcontext_t gc, std::uint8_t depth,
                const QImage& picture)
{
    const auto rowBytes = static_cast<std::uint32_t>(picture.bytesPerLine());
    // The maximum length of a request is in units of four bytes.
    constexpr std::uint32_t requestHeader = 64;
    const std::uint32_t limit = xcb_get_maximum_request_length(connection) * 4 - requestHeader;
    const int rowsPerRequest = std::max(1, static_cast<int>(limit / rowBytes));
    for (int y = 0; y < picture.height(); y += rowsPerRequest) {
        const int rows = std::min(rowsPerRequest, picture.height() - y);
        xcb_put_image(connection, XCB_IMAGE_FORMAT_Z_PIXMAP, drawable, gc,
                      static_cast<std::uint16_t>(picture.width()), static_cast<std::uint16_t>(rows), 0,
                      static_cast<std::int16_t>(y), 0, depth, rowBytes * static_cast<std::uint32_t>(rows),
                      picture.constScanLine(y));
    }
}

} // namespace tintwick
