#pragma once

#include <QRgb>

#include <cstddef>
#include <cstdint>
#include <optional>

namespace tintwick {

/// Where the channels of a pixel are in memory.
struct PixelFormat
{
    int bytesPerPixel = 0;
    /// The lowest bit of each channel in the little-endian number that the bytes of a pixel are.
    int redShift = 0;
    int greenShift = 0;
    int blueShift = 0;
    int redBits = 8;
    int greenBits = 8;
    int blueBits = 8;

    /// The opaque colour of the pixel at this address, with the 8 most significant bits of each channel.
    [[nodiscard]] QRgb read(const std::byte* pixel) const;
};

/// The description of a wl_shm_format; none for formats that do not store red, green and blue as integers.
[[nodiscard]] std::optional<PixelFormat> pixelFormatOf(std::uint32_t shmFormat);

} // namespace tintwick
