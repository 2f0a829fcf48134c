#include "BufferTransform.h"

#include <wayland-client-protocol.h>

namespace tintwick {

QSize transformedSize(int transform, QSize size)
{
    return (transform & WL_OUTPUT_TRANSFORM_90) != 0 ? size.transposed() : size;
}

QPoint bufferPixel(int transform, QSize upright, QPoint pixel)
{
    const int right = upright.width() - 1 - pixel.x();
    const int bottom = upright.height() - 1 - pixel.y();
    switch (transform) {
    case WL_OUTPUT_TRANSFORM_90:
        return {pixel.y(), right};
    case WL_OUTPUT_TRANSFORM_180:
        return {right, bottom};
    case WL_OUTPUT_TRANSFORM_270:
        return {bottom, pixel.x()};
    case WL_OUTPUT_TRANSFORM_FLIPPED:
        return {right, pixel.y()};
    case WL_OUTPUT_TRANSFORM_FLIPPED_90:
        return {pixel.y(), pixel.x()};
    case WL_OUTPUT_TRANSFORM_FLIPPED_180:
        return {pixel.x(), bottom};
    case WL_OUTPUT_TRANSFORM_FLIPPED_270:
        return {bottom, right};
    default:
        return pixel;
    }
}

int upsideDown(int transform)
{
    switch (transform) {
    case WL_OUTPUT_TRANSFORM_90:
        return WL_OUTPUT_TRANSFORM_FLIPPED_90;
    case WL_OUTPUT_TRANSFORM_180:
        return WL_OUTPUT_TRANSFORM_FLIPPED;
    case WL_OUTPUT_TRANSFORM_270:
        return WL_OUTPUT_TRANSFORM_FLIPPED_270;
    case WL_OUTPUT_TRANSFORM_FLIPPED:
        return WL_OUTPUT_TRANSFORM_180;
    case WL_OUTPUT_TRANSFORM_FLIPPED_90:
        return WL_OUTPUT_TRANSFORM_90;
    case WL_OUTPUT_TRANSFORM_FLIPPED_180:
        return WL_OUTPUT_TRANSFORM_NORMAL;
    case WL_OUTPUT_TRANSFORM_FLIPPED_270:
        return WL_OUTPUT_TRANSFORM_270;
    default:
        return WL_OUTPUT_TRANSFORM_FLIPPED_180;
    }
}

} // namespace tintwick
