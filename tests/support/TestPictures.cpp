#include "support/TestPictures.h"

#include <cmath>

namespace tintwick::test {

namespace {

template <typename PixelAt>
ScreenImage imageOf(int width, int height, PixelAt pixelAt)
{
    // Rows with padding, as window systems deliver them.
    const int bytesPerRow = width * 4 + 12;
    ScreenImage image{width, height, bytesPerRow, 8, {}};
    image.bytes.assign(static_cast<std::size_t>(bytesPerRow) * static_cast<std::size_t>(height), 0xEE);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            const auto [red, green, blue] = pixelAt(x, y);
            std::uint8_t* const pixel = image.bytes.data() + y * bytesPerRow + x * 4;
            pixel[0] = blue;
            pixel[1] = green;
            pixel[2] = red;
            pixel[3] = 255;
        }
    }
    return image;
}

struct Bytes
{
    std::uint8_t red = 0;
    std::uint8_t green = 0;
    std::uint8_t blue = 0;
};

Bytes worldBytes(int x, int y)
{
    return {static_cast<std::uint8_t>(x & 0xFF), static_cast<std::uint8_t>(y & 0xFF),
            static_cast<std::uint8_t>((x ^ y) & 0xFF)};
}

} // namespace

ScreenImage numberedImage(int width, int height)
{
    return imageOf(width, height, [](int x, int y) {
        return Bytes{200, static_cast<std::uint8_t>(10 + y), static_cast<std::uint8_t>(10 + x)};
    });
}

ScreenImage worldImage(const DesktopRect& rect, int density)
{
    const int left = static_cast<int>(std::floor(rect.x * density));
    const int top = static_cast<int>(std::floor(rect.y * density));
    return imageOf(static_cast<int>(rect.width) * density, static_cast<int>(rect.height) * density,
                   [&](int x, int y) { return worldBytes(left + x, top + y); });
}

SampledColor worldColor(int x, int y)
{
    const Bytes bytes = worldBytes(x, y);
    return {bytes.red / 255.0, bytes.green / 255.0, bytes.blue / 255.0, 1.0};
}

} // namespace tintwick::test
