#include "ScreenCaptureService.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>

namespace tintwick {

namespace {

constexpr std::size_t bytesPerPixel = 4;

int sideOf(int radius)
{
    return 2 * radius + 1;
}

// An image comes from outside: what it says of its size is believed only as far as its bytes reach.
std::optional<SampledColor> colorOfPixel(const ScreenImage& image, int column, int row)
{
    if (column < 0 || column >= image.width || row < 0 || row >= image.height || image.bytesPerRow < 0) {
        return std::nullopt;
    }
    const std::size_t offset = static_cast<std::size_t>(row) * static_cast<std::size_t>(image.bytesPerRow) +
                               static_cast<std::size_t>(column) * bytesPerPixel;
    if (image.bytes.size() < bytesPerPixel || offset > image.bytes.size() - bytesPerPixel) {
        return std::nullopt;
    }
    const std::uint8_t* const pixel = image.bytes.data() + offset;
    const double alpha = pixel[3] > 0 ? pixel[3] / 255.0 : 1.0;
    // Where a component exceeds its alpha the picture was not premultiplied; no colour is brighter than full.
    const auto component = [alpha](std::uint8_t byte) { return std::min(byte / 255.0 / alpha, 1.0); };
    return SampledColor{component(pixel[2]), component(pixel[1]), component(pixel[0]), 1.0};
}

PixelGrid darkGrid(int side)
{
    const auto cells = static_cast<std::size_t>(side);
    return PixelGrid(cells, std::vector<SampledColor>(cells, darkGray));
}

// Each cell takes the one pixel in the middle of its block, so that a cell never shows a colour no pixel has.
void fillFromImage(PixelGrid& grid, const ScreenImage& image)
{
    const int side = static_cast<int>(grid.size());
    // A picture cut short has fewer pixels than cells: one pixel a cell, as far as they go.
    const int scaleX = std::max(image.width / side, 1);
    const int scaleY = std::max(image.height / side, 1);
    for (int row = 0; row < side; ++row) {
        std::vector<SampledColor>& cells = grid[static_cast<std::size_t>(row)];
        for (int column = 0; column < side; ++column) {
            const std::optional<SampledColor> color =
                colorOfPixel(image, column * scaleX + scaleX / 2, row * scaleY + scaleY / 2);
            cells[static_cast<std::size_t>(column)] = color.value_or(darkGray);
        }
    }
}

} // namespace

ScreenCaptureService::ScreenCaptureService(ScreenGrabber& grabber)
    : m_grabber(grabber)
{
}

CoordinateFlip ScreenCaptureService::coordinates() const
{
    const std::vector<Screen> screens = m_grabber.screens();
    return screens.empty() ? CoordinateFlip() : CoordinateFlip(screens.front().frame);
}

DesktopRect ScreenCaptureService::captureRect(GlobalPoint point, int radius) const
{
    const DesktopPoint center = coordinates().toDesktop(point);
    const double side = sideOf(radius);
    return {center.x - radius, center.y - radius, side, side};
}

PixelGrid ScreenCaptureService::pixelGrid(GlobalPoint point, int radius) const
{
    PixelGrid grid = darkGrid(sideOf(radius));
    if (const std::optional<ScreenImage> image =
            m_grabber.grab(captureRect(point, radius), m_referenceWindowID)) {
        fillFromImage(grid, *image);
    }
    return grid;
}

std::optional<SampledColor> ScreenCaptureService::colorAt(GlobalPoint point) const
{
    const std::optional<ScreenImage> image = m_grabber.grab(captureRect(point, 0), m_referenceWindowID);
    return image ? sampleCenter(*image) : std::nullopt;
}

ScreenCaptureService::Sample ScreenCaptureService::sample(GlobalPoint point, int radius) const
{
    const int side = sideOf(radius);
    Sample sample{darkGrid(side), std::nullopt};
    const std::optional<ScreenImage> image = m_grabber.grab(captureRect(point, radius), m_referenceWindowID);
    if (image) {
        fillFromImage(sample.grid, *image);
    }
    // Only when every cell has the same number of pixels is the image's middle the middle of the centre cell.
    const bool isWhole = image && image->width > 0 && image->height > 0 && image->width % side == 0 &&
                         image->height % side == 0;
    sample.center = isWhole ? sampleCenter(*image) : colorAt(point);
    return sample;
}

std::optional<SampledColor> ScreenCaptureService::sampleCenter(const ScreenImage& image)
{
    if (image.bitsPerComponent != 8) {
        return std::nullopt;
    }
    return colorOfPixel(image, image.width / 2, image.height / 2);
}

} // namespace tintwick
