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

LoupeGeometry::LoupeGeometry(const LoupeLook& look, double scale)
    : LoupeGeometry(look.side, scale,
                    loupe::infoHeight + (look.showsName && look.showsText ? loupe::lineHeight : 0))
{
}

LoupeGeometry::LoupeGeometry(double side, double scale, double infoHeight)
    : m_scale(scale)
    , m_infoHeight(infoHeight)
    , m_body(qRound(loupe::shadowSides * scale), qRound(loupe::shadowAbove * scale), qRound(side * scale),
             qRound((side + loupe::gap + infoHeight) * scale))
    , m_size(m_body.width() + 2 * m_body.x(),
             m_body.y() + m_body.height() + qRound(loupe::shadowBelow * scale))
{
}

QRect LoupeGeometry::lens() const
{
    return {m_body.topLeft(), QSize(m_body.width(), m_body.width())};
}

QRectF LoupeGeometry::inner() const
{
    const double border = loupe::borderWidth * m_scale;
    return QRectF(lens()).adjusted(border, border, -border, -border);
}

QRect LoupeGeometry::pill() const
{
    const int height = qRound(m_infoHeight * m_scale);
    return {m_body.x(), m_body.bottom() + 1 - height, m_body.width(), height};
}

double LoupeGeometry::cellSide(int count) const
{
    return inner().width() / count;
}

std::vector<int> LoupeGeometry::cellEdges(int count) const
{
    const int side = m_body.width();
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

int LoupeGeometry::gridLineWidth() const
{
    return std::max(1, qRound(loupe::gridLineWidth * m_scale));
}

std::vector<int> LoupeGeometry::gridLines(int count) const
{
    std::vector<int> lines = cellEdges(count);
    lines.pop_back();
    lines.erase(lines.begin());
    const int width = gridLineWidth();
    for (int i = 1; 2 * i <= count && i < count; ++i) {
        lines[static_cast<std::size_t>(i) - 1] -= width;
    }
    return lines;
}

QRect LoupeGeometry::centerCell(int count) const
{
    const int start = nearestPixel(m_body.width() / 2.0 - cellSide(count) / 2.0);
    return lens().adjusted(start, start, -start, -start);
}

QPointF loupePlace(QPointF pointer, QSize body, QSize screen, double margin)
{
    // The lens is as wide as the body, and square.
    const double lensRadius = body.width() / 2.0;
    const double rightmost = screen.width() - body.width() - margin;
    const double lowest = screen.height() - body.height() - margin;
    return {std::max(margin, std::min(rightmost, pointer.x() - lensRadius)),
            std::min(lowest, std::max(margin, pointer.y() - lensRadius))};
}

QPointF loupePlaceForFinger(QPointF finger, QSize body, QSize screen, double margin, double room)
{
    const double lensRadius = body.width() / 2.0;
    const double top = finger.y() - room - body.height();
    if (top >= margin) {
        return loupePlace({finger.x(), top + lensRadius}, body, screen, margin);
    }
    const double left = finger.x() - room - lensRadius;
    const bool fitsLeft = left - lensRadius >= margin;
    return loupePlace({fitsLeft ? left : finger.x() + room + lensRadius, finger.y()}, body, screen, margin);
}

} // namespace tintwick
