#pragma once

#include <xcb/xcb.h>

#include <cstdint>

class QImage;

namespace tintwick {

/// Draws a picture of four bytes per pixel at the top left of a drawable of the given depth, in as many requests as the
/// server's maximum length demands. Requests are only queued.
void putPicture(xcb_connection_t* connection, xcb_drawable_t drawable, xcb_gcontext_t gc, std::uint8_t depth,
                const QImage& picture);

} // namespace tintwick
