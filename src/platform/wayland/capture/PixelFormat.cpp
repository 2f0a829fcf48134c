#include "PixelFormat.h"

#include <wayland-client-protocol.h>

#include <algorithm>
#include <cstring>
#include <iterator>

namespace tintwick {

namespace {

struct Row
{
    std::uint32_t format = 0;
    PixelFormat description;
};

// The names of the formats list the channels from the highest bit to the lowest.
constexpr Row rows[] = {
    {WL_SHM_FORMAT_XRGB8888, {4, 16, 8, 0}},
    {WL_SHM_FORMAT_ARGB8888, {4, 16, 8, 0}},
    {WL_SHM_FORMAT_XBGR8888, {4, 0, 8, 16}},
    {WL_SHM_FORMAT_ABGR8888, {4, 0, 8, 16}},
    {WL_SHM_FORMAT_RGBX8888, {4, 24, 16, 8}},
    {WL_SHM_FORMAT_RGBA8888, {4, 24, 16, 8}},
    {WL_SHM_FORMAT_BGRX8888, {4, 8, 16, 24}},
    {WL_SHM_FORMAT_BGRA8888, {4, 8, 16, 24}},
    {WL_SHM_FORMAT_RGB888, {3, 16, 8, 0}},
    {WL_SHM_FORMAT_BGR888, {3, 0, 8, 16}},
    {WL_SHM_FORMAT_RGB565, {2, 11, 5, 0, 5, 6, 5}},
    {WL_SHM_FORMAT_BGR565, {2, 0, 5, 11, 5, 6, 5}},
    {WL_SHM_FORMAT_XRGB2101010, {4, 20, 10, 0, 10, 10, 10}},
    {WL_SHM_FORMAT_ARGB2101010, {4, 20, 10, 0, 10, 10, 10}},
    {WL_SHM_FORMAT_XBGR2101010, {4, 0, 10, 20, 10, 10, 10}},
    {WL_SHM_FORMAT_ABGR2101010, {4, 0, 10, 20, 10, 10, 10}},
    {WL_SHM_FORMAT_RGBX1010102, {4, 22, 12, 2, 10, 10, 10}},
    {WL_SHM_FORMAT_RGBA1010102, {4, 22, 12, 2, 10, 10, 10}},
    {WL_SHM_FORMAT_BGRX1010102, {4, 2, 12, 22, 10, 10, 10}},
    {WL_SHM_FORMAT_BGRA1010102, {4, 2, 12, 22, 10, 10, 10}},
    {WL_SHM_FORMAT_XRGB16161616, {8, 32, 16, 0, 16, 16, 16}},
    {WL_SHM_FORMAT_ARGB16161616, {8, 32, 16, 0, 16, 16, 16}},
    {WL_SHM_FORMAT_XBGR16161616, {8, 0, 16, 32, 16, 16, 16}},
    {WL_SHM_FORMAT_ABGR16161616, {8, 0, 16, 32, 16, 16, 16}},
};

/// A channel of few bits is spread over all 8, so that full stays full.
int channel(std::uint64_t pixel, int shift, int bits)
{
    const auto value =
        static_cast<int>((pixel >> static_cast<unsigned>(shift)) & ((1U << static_cast<unsigned>(bits)) - 1));
    if (bits >= 8) {
        return value >> (bits - 8);
    }
    return (value << (8 - bits)) | (value >> (2 * bits - 8));
}

} // namespace

QRgb PixelFormat::read(const std::byte* pixel) const
{
    std::uint64_t value = 0;
    std::memcpy(&value, pixel, static_cast<std::size_t>(bytesPerPixel));
    return qRgb(channel(value, redShift, redBits), channel(value, greenShift, greenBits),
                channel(value, blueShift, blueBits));
}

std::optional<PixelFormat> pixelFormatOf(std::uint32_t shmFormat)
{
    const auto* const found = std::ranges::find(rows, shmFormat, &Row::format);
    return found != std::end(rows) ? std::optional(found->description) : std::nullopt;
}

} // namespace tintwick
