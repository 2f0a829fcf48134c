#include "support/wayland/PixelChoice.h"

#include <QRandomGenerator>

namespace tintwick {

std::vector<WaylandDesktop::Pixel> cornersAndEdges(WaylandDesktop& desktop)
{
    std::vector<WaylandDesktop::Pixel> pixels;
    for (std::size_t output = 0; output < desktop.outputCount(); ++output) {
        const int right = desktop.screen(output).right();
        const int bottom = desktop.screen(output).bottom();
        for (const QPoint point : {QPoint(0, 0), QPoint(right, 0), QPoint(0, bottom), QPoint(right, bottom),
                                   QPoint(right / 4, 0), QPoint(right / 4, bottom), QPoint(0, bottom / 3),
                                   QPoint(right, bottom / 3), QPoint(1, 1), QPoint(right - 1, bottom - 1)}) {
            pixels.push_back({output, point});
        }
    }
    return pixels;
}

std::vector<WaylandDesktop::Pixel> randomPixels(WaylandDesktop& desktop, int count)
{
    QRandomGenerator random(20240229);
    std::vector<WaylandDesktop::Pixel> pixels;
    while (static_cast<int>(pixels.size()) < count) {
        const auto output = static_cast<std::size_t>(random.bounded(static_cast<int>(desktop.outputCount())));
        const QSize size = desktop.outputSize(output);
        pixels.push_back({output, {random.bounded(size.width()), random.bounded(size.height())}});
    }
    return pixels;
}

QByteArray description(const WaylandDesktop::Pixel& pixel)
{
    return "output " + QByteArray::number(pixel.output) + " at " + QByteArray::number(pixel.point.x()) +
           ", " + QByteArray::number(pixel.point.y());
}

} // namespace tintwick
