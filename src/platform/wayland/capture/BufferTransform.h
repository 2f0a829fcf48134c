#pragma once

#include <QPoint>
#include <QSize>

namespace tintwick {

// A wl_output_transform maps the pixels of the upright picture to those of a buffer. See wl_surface.set_buffer_transform.

/// The size of the upright picture; the same function maps it back to that of the buffer.
[[nodiscard]] QSize transformedSize(int transform, QSize size);

/// The pixel of the buffer that shows a pixel of the upright picture, which has this size.
[[nodiscard]] QPoint bufferPixel(int transform, QSize upright, QPoint pixel);

/// The transform of a buffer whose rows are also stored from the bottom to the top.
[[nodiscard]] int upsideDown(int transform);

} // namespace tintwick
