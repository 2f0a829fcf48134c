#include "Shadow.h"

#include "Corners.h"
#include "GaussianBlur.h"
#include "Paint.h"

#include <QCache>
#include <QImage>
#include <QPaintEngine>
#include <QPainter>
#include <QRegion>

#include <algorithm>
#include <cmath>

namespace tintwick {

namespace {

/// Kilobytes of cached tinted shapes. A panel full of swatches needs some hundred, four times as much at scale 2.
constexpr qsizetype tintedLimit = 3072;
/// Kilobytes of cached blurred shapes, of which there are a few for each scale.
constexpr qsizetype blurredLimit = 1024;

/// Everything that the result of a blur depends on.
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
    return GaussianBlur{.standardDeviation = shadowRadius / 2}.reach();
}

/// The size in points of a corner of the blurred picture, which is painted unstretched. Between two corners the picture is the
/// same along the edge.
int cornerPart(double cornerRadius, double shadowRadius)
{
    return static_cast<int>(std::ceil(1.3 * cornerRadius)) + 2 * reachOf(shadowRadius);
}

/// The blurred alpha of the smallest rounded rectangle that has such corners.
QImage blurredShape(const Shape& key)
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
    return blurred(shape, {.standardDeviation = key.shadowRadius / 2 * scale});
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

/// Whether a rectangle touches the region that the widget is asked to paint. Most of a long list in a scroll area does not.
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
            return blurredShape(key.shape);
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
    // A shape smaller than its blur has no middle. Its corners are cut.
    const double partX = std::min(part, target.width() / 2);
    const double partY = std::min(part, target.height() / 2);
    const double targetX[] = {target.left(), target.left() + partX, target.right() - partX, target.right()};
    const double targetY[] = {target.top(), target.top() + partY, target.bottom() - partY, target.bottom()};
    const double fromX[] = {0, partX, side - partX, side};
    const double fromY[] = {0, partY, side - partY, side};
    painter.save();
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    // With antialiasing, two pieces that meet inside a pixel would leave a visible seam.
    painter.setRenderHint(QPainter::Antialiasing, false);
    for (int row = 0; row < 3; ++row) {
        for (int column = 0; column < 3; ++column) {
            const QRectF to(QPointF(targetX[column], targetY[row]),
                            QPointF(targetX[column + 1], targetY[row + 1]));
            // The middle strip is uniform, so one point of it is stretched.
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
