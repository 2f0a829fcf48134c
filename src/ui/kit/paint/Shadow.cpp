#include "Shadow.h"

#include "Corners.h"
#include "Paint.h"

#include <QCache>
#include <QImage>
#include <QPaintEngine>
#include <QPainter>
#include <QRegion>

#include <algorithm>
#include <cmath>
#include <vector>

namespace tintwick {

namespace {

/// Beyond this many standard deviations a shadow is fainter than one step of a byte.
constexpr double visibleDeviations = 3;
/// Kilobytes of tinted shapes that are kept; a panel full of swatches needs some hundreds, four times as much at scale 2.
constexpr qsizetype tintedLimit = 3072;
/// The same of the blurred shapes, of which there are a few for each scale.
constexpr qsizetype blurredLimit = 1024;

/// All that a blur depends on.
struct Shape
{
    double cornerRadius;
    double shadowRadius;
    double devicePixelRatio;

    friend bool operator==(const Shape&, const Shape&) = default;
    friend size_t qHash(const Shape& shape, size_t seed = 0)
    {
        return qHashMulti(seed, shape.cornerRadius, shape.shadowRadius, shape.devicePixelRatio);
    }
};

struct Key
{
    Shape shape;
    QRgb color;

    friend bool operator==(const Key&, const Key&) = default;
    friend size_t qHash(const Key& key, size_t seed = 0) { return qHashMulti(seed, key.shape, key.color); }
};

int reachOf(double shadowRadius)
{
    return static_cast<int>(std::ceil(visibleDeviations * shadowRadius / 2));
}

/// Blurs along rows; called twice with the picture turned in between it blurs both ways.
QImage blurredAndTurned(const QImage& source, const std::vector<float>& weights)
{
    const int reach = static_cast<int>(weights.size()) / 2;
    QImage result(source.height(), source.width(), QImage::Format_Alpha8);
    std::vector<float> padded(static_cast<std::size_t>(source.width() + 2 * reach));
    for (int y = 0; y < source.height(); ++y) {
        std::ranges::fill(padded, 0.0F);
        std::copy_n(source.constScanLine(y), source.width(), padded.begin() + reach);
        for (int x = 0; x < source.width(); ++x) {
            float sum = 0;
            for (std::size_t tap = 0; tap < weights.size(); ++tap) {
                sum += padded[static_cast<std::size_t>(x) + tap] * weights[tap];
            }
            result.scanLine(x)[y] = static_cast<uchar>(std::lround(sum));
        }
    }
    return result;
}

std::vector<float> gaussian(double deviation)
{
    const int reach = static_cast<int>(std::ceil(visibleDeviations * deviation));
    std::vector<float> weights;
    float sum = 0;
    for (int distance = -reach; distance <= reach; ++distance) {
        const double x = distance / deviation;
        weights.push_back(static_cast<float>(std::exp(-0.5 * x * x)));
        sum += weights.back();
    }
    for (float& weight : weights) {
        weight /= sum;
    }
    return weights;
}

/// The points from an outer edge of the picture to where only the colour of the edge goes on: the part that is painted
/// unstretched.
int cornerPart(double cornerRadius, double shadowRadius)
{
    return static_cast<int>(std::ceil(1.3 * cornerRadius)) + 2 * reachOf(shadowRadius);
}

/// The shadow of the smallest shape with such corners, without a colour.
QImage blurred(const Shape& key)
{
    const double scale = key.devicePixelRatio;
    const int reach = reachOf(key.shadowRadius);
    const int side = 2 * cornerPart(key.cornerRadius, key.shadowRadius) + 1;
    const int pixels = static_cast<int>(std::ceil(side * scale));
    QImage shape(pixels, pixels, QImage::Format_Alpha8);
    shape.fill(0);
    QPainter painter(&shape);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(pixels / static_cast<double>(side), pixels / static_cast<double>(side));
    painter.fillPath(roundedPath(QRectF(reach, reach, side - 2 * reach, side - 2 * reach), key.cornerRadius),
                     Qt::black);
    painter.end();
    if (key.shadowRadius > 0) {
        const std::vector<float> weights = gaussian(key.shadowRadius / 2 * scale);
        shape = blurredAndTurned(blurredAndTurned(shape, weights), weights);
    }
    return shape;
}

QImage tinted(const QImage& shape, QRgb color)
{
    QImage result(shape.size(), QImage::Format_ARGB32_Premultiplied);
    result.fill(QColor::fromRgba(color));
    QPainter tint(&result);
    tint.setCompositionMode(QPainter::CompositionMode_DestinationIn);
    tint.drawImage(0, 0, shape);
    return result;
}

template <typename Key, typename Make>
QImage cached(QCache<Key, QImage>& cache, const Key& key, const Make& make)
{
    if (const QImage* known = cache.object(key)) {
        return *known;
    }
    const QImage made = make();
    cache.insert(key, new QImage(made), std::max<qsizetype>(made.sizeInBytes() / 1024, 1));
    return made;
}

/// Whether a rectangle is in what a widget is asked to paint. Of a long list in a scroll area most is not.
bool canBeSeen(const QPainter& painter, const QRectF& rect)
{
    const QRegion asked = painter.paintEngine()->systemClip();
    return asked.isEmpty() || asked.intersects(painter.deviceTransform().mapRect(rect).toAlignedRect());
}

int blurs = 0;

QImage shadowOf(const Key& key)
{
    static QCache<Key, QImage> tintedShapes(tintedLimit);
    static QCache<Shape, QImage> blurredShapes(blurredLimit);
    return cached(tintedShapes, key, [&] {
        const QImage shape = cached(blurredShapes, key.shape, [&] {
            ++blurs;
            return blurred(key.shape);
        });
        return tinted(shape, key.color);
    });
}

} // namespace

QMargins Shadow::extents() const
{
    const int reach = reachOf(radius);
    const auto beyond = [reach](double toward) {
        return std::max(0, static_cast<int>(std::ceil(reach + toward)));
    };
    return {beyond(-offset.x()), beyond(-offset.y()), beyond(offset.x()), beyond(offset.y())};
}

void drawShadow(QPainter& painter, const QRectF& rect, double cornerRadius, const Shadow& shadow,
                Scheme scheme)
{
    const QColor color = shadow.color.in(scheme);
    if (color.alpha() == 0) {
        return;
    }
    const int reach = reachOf(shadow.radius);
    const QRectF target = rect.translated(shadow.offset).adjusted(-reach, -reach, reach, reach);
    if (!canBeSeen(painter, target)) {
        return;
    }
    const double fitting = std::min({cornerRadius, rect.width() / 2, rect.height() / 2});
    const QImage image = shadowOf({{fitting, shadow.radius, devicePixelRatioOf(painter)}, color.rgba()});

    const double part = cornerPart(fitting, shadow.radius);
    const double side = 2 * part + 1;
    const double pixel = image.width() / side;
    // A shape smaller than its blur has no middle: its corners are drawn as far as they go.
    const double partX = std::min(part, target.width() / 2);
    const double partY = std::min(part, target.height() / 2);
    const double targetX[] = {target.left(), target.left() + partX, target.right() - partX, target.right()};
    const double targetY[] = {target.top(), target.top() + partY, target.bottom() - partY, target.bottom()};
    const double fromX[] = {0, partX, side - partX, side};
    const double fromY[] = {0, partY, side - partY, side};
    painter.save();
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    // Where two pieces meet inside a pixel, both would cover it in part and a seam would show.
    painter.setRenderHint(QPainter::Antialiasing, false);
    for (int row = 0; row < 3; ++row) {
        for (int column = 0; column < 3; ++column) {
            const QRectF to(QPointF(targetX[column], targetY[row]),
                            QPointF(targetX[column + 1], targetY[row + 1]));
            // The middle strip is the same everywhere: one point of it is enough.
            const double left = column == 1 ? part : fromX[column];
            const double top = row == 1 ? part : fromY[row];
            const double right = column == 1 ? part + 1 : fromX[column + 1];
            const double bottom = row == 1 ? part + 1 : fromY[row + 1];
            if (to.width() > 0 && to.height() > 0) {
                painter.drawImage(
                    to, image,
                    QRectF(left * pixel, top * pixel, (right - left) * pixel, (bottom - top) * pixel));
            }
        }
    }
    painter.restore();
}

void drawShadowBetween(QPainter& painter, const QRectF& rect, double cornerRadius, const Shadow& from,
                       const Shadow& to, double fraction, Scheme scheme)
{
    const double opacity = painter.opacity();
    const auto draw = [&](const Shadow& shadow, double part) {
        if (part > 0) {
            painter.setOpacity(opacity * part);
            drawShadow(painter, rect, cornerRadius, shadow, scheme);
        }
    };
    draw(from, 1 - fraction);
    draw(to, fraction);
    painter.setOpacity(opacity);
}

int blurCount()
{
    return blurs;
}

} // namespace tintwick
