#include "DesktopPicture.h"

#include <QPointF>
#include <QSizeF>

#include <algorithm>
#include <cmath>

namespace tintwick {

namespace {

/// Physical pixels per logical unit.
double scaleOf(const MonitorPlace& monitor)
{
    return static_cast<double>(monitor.pixels.width()) / monitor.logical.width();
}

/// The positions in a row or column of the desktop's picture from which the pixels of a monitor come.
std::vector<int> sources(double first, double length, int pixels, int end)
{
    double step = length / pixels;
    // Logical sizes are rounded, so that this difference is none.
    if (std::abs(length - pixels) < 1) {
        step = 1;
    }
    std::vector<int> positions(static_cast<std::size_t>(pixels));
    for (int i = 0; i < pixels; ++i) {
        const int position = static_cast<int>(std::floor(first + (i + 0.5) * step));
        positions[static_cast<std::size_t>(i)] = std::clamp(position, 0, end - 1);
    }
    return positions;
}

QImage cut(const QImage& desktop, const QRectF& part, QSize pixels)
{
    const std::vector<int> columns = sources(part.x(), part.width(), pixels.width(), desktop.width());
    const std::vector<int> rows = sources(part.y(), part.height(), pixels.height(), desktop.height());
    QImage picture(pixels, QImage::Format_RGB32);
    if (picture.isNull()) {
        return {};
    }
    for (int y = 0; y < pixels.height(); ++y) {
        const auto* from =
            reinterpret_cast<const QRgb*>(desktop.constScanLine(rows[static_cast<std::size_t>(y)]));
        auto* to = reinterpret_cast<QRgb*>(picture.scanLine(y));
        std::ranges::transform(columns, to, [from](int x) { return from[x]; });
    }
    return picture;
}

} // namespace

std::vector<QImage> cutDesktopPicture(const QImage& desktop, const std::vector<MonitorPlace>& monitors)
{
    QRect all;
    double scale = 0;
    for (const MonitorPlace& monitor : monitors) {
        if (monitor.logical.isEmpty() || monitor.pixels.isEmpty()) {
            return {};
        }
        all |= monitor.logical;
        scale = std::max(scale, scaleOf(monitor));
    }
    // The scale of the largest monitor comes from rounded sizes.
    const QSizeF difference = QSizeF(desktop.size()) - QSizeF(all.size()) * scale;
    constexpr double tolerance = 3;
    if (monitors.empty() || std::abs(difference.width()) > tolerance ||
        std::abs(difference.height()) > tolerance) {
        return {};
    }
    const QImage source = desktop.convertToFormat(QImage::Format_RGB32);
    std::vector<QImage> pictures;
    for (const MonitorPlace& monitor : monitors) {
        const QRect place = monitor.logical.translated(-all.topLeft());
        pictures.push_back(
            cut(source, {QPointF(place.topLeft()) * scale, QSizeF(place.size()) * scale}, monitor.pixels));
    }
    return pictures;
}

} // namespace tintwick
