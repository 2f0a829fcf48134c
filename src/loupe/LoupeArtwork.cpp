#include "LoupeArtwork.h"

#include "DropShadow.h"

#include <QPainter>
#include <QPainterPath>

#include <algorithm>

namespace tintwick {

namespace {

// Lengths in points.
constexpr DropShadow ringShadow{.offsetY = 4, .blur = 16, .opacity = 0.55};
constexpr DropShadow pillShadow{.offsetY = 2, .blur = 8, .opacity = 0.35};
constexpr double centerOutlineWidth = 1.5;
constexpr double pillOutlineWidth = 0.5;

QColor gray(double level, double alpha = 1)
{
    return QColor::fromRgbF(static_cast<float>(level), static_cast<float>(level), static_cast<float>(level),
                            static_cast<float>(alpha));
}

DropShadow scaled(const DropShadow& shadow, double scale)
{
    return {.offsetY = shadow.offsetY * scale, .blur = shadow.blur * scale, .opacity = shadow.opacity};
}

void fillFrame(QPainter& painter, const QRect& outside, const QRect& inside, const QColor& color)
{
    for (const QRect& rect : QRegion(outside).subtracted(inside)) {
        painter.fillRect(rect, color);
    }
}

QRect grown(const QRect& rect, int by)
{
    return rect.adjusted(-by, -by, by, by);
}

} // namespace

LoupeArtwork::LoupeArtwork(const LoupeLook& look, const LoupeGeometry& geometry)
    : m_look(look)
    , m_geometry(geometry)
{
}

QImage LoupeArtwork::below() const
{
    QImage ring = blank(QImage::Format_Alpha8);
    QPainter ringPainter(&ring);
    strokeRing(ringPainter);
    ringPainter.end();

    QImage pill = blank(QImage::Format_Alpha8);
    QPainter pillPainter(&pill);
    pillPainter.setRenderHint(QPainter::Antialiasing);
    pillPainter.fillPath(pillShape(0), Qt::black);
    pillPainter.end();

    const double scale = m_geometry.scale();
    QImage image = blank(QImage::Format_ARGB32_Premultiplied);
    QPainter painter(&image);
    painter.drawImage(0, 0, shadowOf(ring, scaled(ringShadow, scale)));
    strokeRing(painter);
    painter.drawImage(0, 0, shadowOf(pill, scaled(pillShadow, scale)));
    return image;
}

QImage LoupeArtwork::opening() const
{
    QImage image = blank(QImage::Format_Alpha8);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillPath(lensOpening(), Qt::black);
    painter.fillPath(pillShape(0), Qt::black);
    return image;
}

QImage LoupeArtwork::aboveLens(int count) const
{
    QImage image = blank(QImage::Format_ARGB32_Premultiplied);
    QPainter painter(&image);
    if (!m_look.hasHighContrast) {
        drawGridLines(painter, count);
    }
    drawCenterOutlines(painter, count);
    strokeRing(painter);
    return image;
}

QImage LoupeArtwork::abovePill(PillTone tone) const
{
    QImage image = blank(QImage::Format_ARGB32_Premultiplied);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    const QColor color = tone == PillTone::LightBackground ? gray(0, 0.08) : gray(1, 0.15);
    const double width = pillOutlineWidth * m_geometry.scale();
    painter.strokePath(pillShape(width / 2), QPen(color, width));
    return image;
}

QImage LoupeArtwork::blank(QImage::Format format) const
{
    QImage image(m_geometry.size(), format);
    image.fill(0);
    return image;
}

QPainterPath LoupeArtwork::ringPath() const
{
    const double scale = m_geometry.scale();
    const double inset = loupe::borderWidth * scale / 2;
    const QRectF rect = QRectF(m_geometry.lens()).adjusted(inset, inset, -inset, -inset);
    QPainterPath path;
    if (m_look.isCircle) {
        path.addEllipse(rect);
    } else {
        path.addRoundedRect(rect, loupe::lensCorner * scale, loupe::lensCorner * scale);
    }
    return path;
}

QPainterPath LoupeArtwork::lensOpening() const
{
    // One pixel wider than the area of the cells. The ring covers that pixel, so no translucent seam appears where the
    // antialiased edges of the ring and the opening meet.
    constexpr double overlap = 1;
    const QRectF rect = m_geometry.inner().adjusted(-overlap, -overlap, overlap, overlap);
    QPainterPath path;
    if (m_look.isCircle) {
        path.addEllipse(rect);
    } else {
        const double corner = (loupe::lensCorner - loupe::borderWidth) * m_geometry.scale() + overlap;
        path.addRoundedRect(rect, corner, corner);
    }
    return path;
}

QPainterPath LoupeArtwork::pillShape(double inset) const
{
    const double corner = loupe::infoCorner * m_geometry.scale();
    QPainterPath path;
    path.addRoundedRect(QRectF(m_geometry.pill()).adjusted(inset, inset, -inset, -inset), corner, corner);
    return path;
}

void LoupeArtwork::strokeRing(QPainter& painter) const
{
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.strokePath(ringPath(), QPen(gray(0.07), loupe::borderWidth * m_geometry.scale()));
    painter.restore();
}

void LoupeArtwork::drawGridLines(QPainter& painter, int count) const
{
    // A line is drawn in whole pixels. Its opacity decreases in proportion to the added width.
    const double exactWidth = loupe::gridLineWidth * m_geometry.scale();
    const int width = m_geometry.gridLineWidth();
    const QColor color = gray(0, 0.13 * exactWidth / width);
    const QRect lens = m_geometry.lens();

    painter.save();
    painter.setClipPath(lensOpening());
    // Crossing lines must not add up.
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    for (const int start : m_geometry.gridLines(count)) {
        painter.fillRect(lens.left() + start, lens.top(), width, lens.height(), color);
        painter.fillRect(lens.left(), lens.top() + start, lens.width(), width, color);
    }
    painter.restore();
}

void LoupeArtwork::drawCenterOutlines(QPainter& painter, int count) const
{
    // A dark line centred on the edge of the cell, and a light line of half its width around it. An odd pixel is drawn
    // outside. The colour of the cell stays visible in the middle at any size.
    const QRect cell = m_geometry.centerCell(count);
    const int dark = qRound(centerOutlineWidth * m_geometry.scale());
    const int inside = std::min(dark / 2, (cell.width() - 1) / 2);
    const int outside = dark - dark / 2;
    const int light = std::max(1, dark / 2);

    const QRect darkOutside = grown(cell, outside);
    fillFrame(painter, grown(darkOutside, light), darkOutside, gray(1, 0.8));
    fillFrame(painter, darkOutside, grown(cell, -inside), gray(0.05));
}

} // namespace tintwick
