#include "Paint.h"

#include "Corners.h"

#include <QLinearGradient>
#include <QPaintEngine>
#include <QPainter>
#include <QPen>
#include <QTransform>

#include <algorithm>
#include <cmath>

namespace tintwick {

namespace {

constexpr double hairlineThickness = 0.5;
constexpr double focusRingWidth = 2;
constexpr double checkerCell = 4;
constexpr QColor darkCheck(191, 191, 191);

/// A line is at least one physical pixel wide, because a thinner one is almost invisible.
void stroke(QPainter& painter, const QRectF& rect, double radius, QPen pen)
{
    pen.setWidthF(std::max(pen.widthF(), 1 / devicePixelRatioOf(painter)));
    const double half = pen.widthF() / 2;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(pen);
    painter.setBrush(Qt::NoBrush);
    painter.drawPath(roundedPath(rect.adjusted(half, half, -half, -half), std::max(0.0, radius - half)));
    painter.restore();
}

} // namespace

double devicePixelRatioOf(const QPainter& painter)
{
    return painter.paintEngine()->paintDevice()->devicePixelRatio();
}

QBrush gradientBrush(const QRectF& rect, const theme::Gradient& gradient, Scheme scheme)
{
    QLinearGradient linear(rect.topLeft(), rect.bottomRight());
    linear.setColorAt(0, gradient.start.in(scheme));
    linear.setColorAt(1, gradient.end.in(scheme));
    return linear;
}

QColor mixed(const QColor& from, const QColor& to, double fraction)
{
    const auto part = [fraction](float a, float b) { return std::lerp(a, b, static_cast<float>(fraction)); };
    return QColor::fromRgbF(part(from.redF(), to.redF()), part(from.greenF(), to.greenF()),
                            part(from.blueF(), to.blueF()), part(from.alphaF(), to.alphaF()));
}

void scaleAboutMiddle(QPainter& painter, const QRectF& rect, double scale)
{
    const QPointF middle = rect.center();
    painter.translate(middle);
    painter.scale(scale, scale);
    painter.translate(-middle);
}

void fillRounded(QPainter& painter, const QRectF& rect, double radius, const QBrush& brush)
{
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillPath(roundedPath(rect, radius), brush);
    painter.restore();
}

void strokeInside(QPainter& painter, const QRectF& rect, double radius, const QColor& color, double width)
{
    stroke(painter, rect, radius, QPen(color, width));
}

void strokeInsideDashed(QPainter& painter, const QRectF& rect, double radius, const QColor& color,
                        double width, double on, double off)
{
    QPen pen(color, width, Qt::CustomDashLine, Qt::FlatCap);
    pen.setDashPattern({on / width, off / width});
    stroke(painter, rect, radius, pen);
}

void drawHairline(QPainter& painter, const QPointF& start, double length, const QColor& color)
{
    const QTransform toDevice = painter.deviceTransform();
    QRectF line = toDevice.mapRect(QRectF(start, QSizeF(length, hairlineThickness)));
    // Spread over two rows of pixels, so thin a line would be almost invisible.
    line.moveTop(std::round(line.top()));
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillRect(toDevice.inverted().mapRect(line), color);
    painter.restore();
}

void drawFocusRing(QPainter& painter, const QRectF& rect, double radius, Scheme scheme)
{
    // The inner line is visible where the ground has the colour of the ring.
    const double inner = focusRingWidth;
    strokeInside(painter, rect.adjusted(inner, inner, -inner, -inner), std::max(0.0, radius - inner),
                 theme::bg.in(scheme), 1);
    strokeInside(painter, rect, radius, theme::focusRing.in(scheme), focusRingWidth);
}

void drawCheckerboard(QPainter& painter, const QRectF& rect, double radius)
{
    // A texture with one pixel per cell, because filling each cell as a path is slow.
    static const QImage cells = [] {
        QImage image(2, 2, QImage::Format_RGB32);
        image.fill(Qt::white);
        image.setPixelColor(1, 0, darkCheck);
        image.setPixelColor(0, 1, darkCheck);
        return image;
    }();
    QBrush brush(cells);
    brush.setTransform(QTransform::fromTranslate(rect.x(), rect.y()).scale(checkerCell, checkerCell));
    fillRounded(painter, rect, radius, brush);
}

} // namespace tintwick
