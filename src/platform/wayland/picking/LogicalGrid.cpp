#include "LogicalGrid.h"

#include <algorithm>
#include <cmath>

namespace tintwick {

namespace {

// Scales are multiples of a quarter in practice.
constexpr int largestStep = 8;

struct Span
{
    int first;
    int end;
};

struct SpanCover
{
    Span logical;
    Span pixels;
};

/// The number of units after which a whole pixel begins again.
int stepOf(double scale)
{
    for (int step = 1; step <= largestStep; ++step) {
        if (std::abs(step * scale - std::round(step * scale)) < 0.002 * step) {
            return step;
        }
    }
    return 1;
}

SpanCover coverSpan(Span wanted, int logicalLength, int pixelLength)
{
    const double scale = static_cast<double>(pixelLength) / logicalLength;
    const int step = stepOf(scale);
    const double stepPixels = step * scale;
    const auto end = [&](double units, int length) { return std::clamp(static_cast<int>(units), 0, length); };
    const double first = std::max(0.0, std::floor(wanted.first / stepPixels));
    const double last = std::max(first, std::ceil(wanted.end / stepPixels));
    return {
        {end(first * step, logicalLength), end(last * step, logicalLength)},
        {end(std::round(first * stepPixels), pixelLength), end(std::round(last * stepPixels), pixelLength)}};
}

} // namespace

LogicalGrid::LogicalGrid(QSize logical, QSize pixels)
    : m_logical(logical)
    , m_pixels(pixels)
{
}

LogicalGrid::Cover LogicalGrid::cover(const QRect& pixels) const
{
    const auto [logicalX, pixelsX] =
        coverSpan({pixels.x(), pixels.x() + pixels.width()}, m_logical.width(), m_pixels.width());
    const auto [logicalY, pixelsY] =
        coverSpan({pixels.y(), pixels.y() + pixels.height()}, m_logical.height(), m_pixels.height());
    const auto rect = [](Span x, Span y) {
        return QRect(x.first, y.first, x.end - x.first, y.end - y.first);
    };
    return {rect(logicalX, logicalY), rect(pixelsX, pixelsY)};
}

QSizeF LogicalGrid::scale() const
{
    return {static_cast<double>(m_pixels.width()) / m_logical.width(),
            static_cast<double>(m_pixels.height()) / m_logical.height()};
}

} // namespace tintwick
