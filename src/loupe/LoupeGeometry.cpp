#include "LoupeGeometry.h"

#include <QtMath>

#include <algorithm>
#include <cmath>

namespace tintwick {

namespace {

/// Rounds halves down, which is away from the middle in the first half of the lens, so that the centre cell never
/// becomes smaller.
int nearestPixel(double position)
{
    // Rounding errors move exact halves by a few ulps to either side.
    constexpr double tolerance = 1e-9;
    return static_cast<int>(std::ceil(position - 0.5 - tolerance));
}

} // namespace

LoupeGeometry::LoupeGeometry(double side, double scale)
    : m_scale(scale)
    , m_size(qRound(side * scale), qRound((side + loupe::gap + loupe::infoHeight) * scale))
{
}

QRect LoupeGeometry::lens() const
{
    return {0, 0, m_size.width(), m_size.width()};
}

QRectF LoupeGeometry::inner() const
{
    const double border = loupe::borderWidth * m_scale;
    return QRectF(lens()).adjusted(border, border, -border, -border);
}

QRect LoupeGeometry::pill() const
{
    const int height = qRound(loupe::infoHeight * m_scale);
    return {0, m_size.height() - height, m_size.width(), height};
}

double LoupeGeometry::cellSide(int count) const
{
    return inner().width() / count;
}

std::vector<int> LoupeGeometry::cellEdges(int count) const
{
    const int side = m_size.width();
    const double cell = cellSide(count);
    std::vector<int> edges(static_cast<std::size_t>(count) + 1);
    const auto mirrored = [&](int i) -> int& { return edges[static_cast<std::size_t>(count - i)]; };
    for (int i = 0; 2 * i <= count; ++i) {
        const int edge = i == 0 ? 0 : nearestPixel(side / 2.0 - (count / 2.0 - i) * cell);
        mirrored(i) = side - edge;
        edges[static_cast<std::size_t>(i)] = edge;
    }
    return edges;
}

QRect LoupeGeometry::centerCell(int count) const
{
    const int side = m_size.width();
    const int start = nearestPixel(side / 2.0 - cellSide(count) / 2.0);
    return {start, start, side - 2 * start, side - 2 * start};
}

QPointF loupePlace(QPointF pointer, QSize loupe, QSize screen, double margin)
{
    // The lens is as wide as the loupe, and square.
    const double lensRadius = loupe.width() / 2.0;
    const double rightmost = screen.width() - loupe.width() - margin;
    const double lowest = screen.height() - loupe.height() - margin;
    return {std::max(margin, std::min(rightmost, pointer.x() - lensRadius)),
            std::min(lowest, std::max(margin, pointer.y() - lensRadius))};
}

} // namespace tintwick
