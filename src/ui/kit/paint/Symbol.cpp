#include "Symbol.h"

#include "Paint.h"

#include <QCache>
#include <QCoreApplication>
#include <QFile>
#include <QIconEngine>
#include <QPainter>
#include <QSvgRenderer>

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

namespace tintwick {

namespace {

using namespace Qt::StringLiterals;

/// The side of the drawing grid per text size. It makes a symbol a little higher than capital letters.
constexpr double gridPerSize = 1.3;

/// The drawings contain the regular stroke width; other weights replace it.
constexpr QByteArrayView regularStroke = "stroke-width=\"1.8\"";

QByteArray strokeOf(SymbolWeight weight)
{
    switch (weight) {
    case SymbolWeight::Regular:
        break;
    case SymbolWeight::Medium:
        return "stroke-width=\"2.1\"";
    case SymbolWeight::Semibold:
        return "stroke-width=\"2.5\"";
    }
    return regularStroke.toByteArray();
}

/// Kilobytes.
constexpr qsizetype pixmapLimit = 4096;

/// Instead of QPixmapCache, which starts a timer that wakes an idle program.
QCache<QString, QPixmap>& pixmaps()
{
    static QCache<QString, QPixmap> cache(pixmapLimit);
    return cache;
}

void keep(const QString& key, const QPixmap& pixmap)
{
    if (pixmaps().isEmpty()) {
        // Pixmaps must not outlive the application object.
        qAddPostRoutine([] { pixmaps().clear(); });
    }
    const qsizetype bytes = qsizetype{pixmap.width()} * pixmap.height() * pixmap.depth() / 8;
    pixmaps().insert(key, new QPixmap(pixmap), std::max<qsizetype>(bytes / 1024, 1));
}

/// Empty for an unknown name.
QByteArray drawing(QStringView name, SymbolWeight weight)
{
    QFile file(u":/symbols/%1.svg"_s.arg(name));
    if (!file.open(QIODevice::ReadOnly)) {
        return {};
    }
    return file.readAll().replace(regularStroke, strokeOf(weight));
}

/// Null for an unknown name.
QPixmap rendered(QStringView name, int pixels, SymbolWeight weight, const QColor& color)
{
    const QByteArray svg = drawing(name, weight);
    if (svg.isEmpty()) {
        return {};
    }
    QSvgRenderer renderer(svg);
    QPixmap pixmap(pixels, pixels);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    renderer.render(&painter);
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(pixmap.rect(), color);
    return pixmap;
}

/// Draws a symbol in the colour of the text around it.
class SymbolIconEngine final : public QIconEngine
{
public:
    explicit SymbolIconEngine(QString name)
        : m_name(std::move(name))
    {
    }

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode, QIcon::State) override
    {
        drawSymbol(*painter, m_name, rect.height() / gridPerSize, SymbolWeight::Regular,
                   painter->pen().color(), rect);
    }
    [[nodiscard]] QIconEngine* clone() const override { return new SymbolIconEngine(m_name); }
    QString iconName() override { return m_name; }
    bool isNull() override { return false; }

private:
    QString m_name;
};

} // namespace

double symbolSide(double size)
{
    return std::round(size * gridPerSize);
}

QPixmap symbolPixmap(QStringView name, double size, SymbolWeight weight, const QColor& color,
                     double devicePixelRatio)
{
    const int pixels = qRound(symbolSide(size) * devicePixelRatio);
    const QString key = u"symbol %1 %2 %3 %4 %5"_s.arg(name)
                            .arg(pixels)
                            .arg(static_cast<int>(weight))
                            .arg(color.rgba(), 0, 16)
                            .arg(devicePixelRatio);
    if (const QPixmap* known = pixmaps().object(key)) {
        return *known;
    }
    QPixmap pixmap = rendered(name, pixels, weight, color);
    if (pixmap.isNull()) {
        return {};
    }
    pixmap.setDevicePixelRatio(devicePixelRatio);
    keep(key, pixmap);
    return pixmap;
}

void drawSymbol(QPainter& painter, QStringView name, double size, SymbolWeight weight, const QColor& color,
                const QRectF& rect)
{
    const double ratio = devicePixelRatioOf(painter);
    const QPixmap pixmap = symbolPixmap(name, size, weight, color, ratio);
    if (pixmap.isNull()) {
        return;
    }
    const QSizeF extent = pixmap.deviceIndependentSize();
    const QPointF middle = rect.center() - QPointF(extent.width() / 2, extent.height() / 2);
    // Lines are crisp on whole device pixels.
    const QPointF topLeft(std::round(middle.x() * ratio) / ratio, std::round(middle.y() * ratio) / ratio);
    painter.save();
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawPixmap(topLeft, pixmap);
    painter.restore();
}

void drawSymbolShadow(QPainter& painter, QStringView name, double size, SymbolWeight weight,
                      const QColor& color, const QRectF& rect)
{
    // The binomial weights of five steps have a variance of one step.
    constexpr std::array weights{1, 4, 6, 4, 1};
    constexpr int reach = 2;
    constexpr double sum = 16;
    const double ratio = devicePixelRatioOf(painter);
    const double side = symbolSide(size) + 2 * reach;
    const QString key = u"symbol shadow %1 %2 %3 %4 %5"_s.arg(name)
                            .arg(size)
                            .arg(static_cast<int>(weight))
                            .arg(color.rgba(), 0, 16)
                            .arg(ratio);
    QPixmap shadow;
    if (const QPixmap* known = pixmaps().object(key)) {
        shadow = *known;
    } else {
        shadow = QPixmap(QSize(1, 1) * qRound(side * ratio));
        shadow.setDevicePixelRatio(ratio);
        shadow.fill(Qt::transparent);
        QPainter blur(&shadow);
        blur.setCompositionMode(QPainter::CompositionMode_Plus);
        for (int y = -reach; y <= reach; ++y) {
            for (int x = -reach; x <= reach; ++x) {
                blur.setOpacity(weights.at(static_cast<std::size_t>(x + reach)) / sum *
                                weights.at(static_cast<std::size_t>(y + reach)) / sum);
                drawSymbol(blur, name, size, weight, color, QRectF(x, y, side, side));
            }
        }
        blur.end();
        keep(key, shadow);
    }
    const QPointF middle = rect.center() - QPointF(side / 2, side / 2);
    painter.drawPixmap(
        QPointF(std::round(middle.x() * ratio) / ratio, std::round(middle.y() * ratio) / ratio), shadow);
}

QPixmap symbolPixmapOfSide(QStringView name, int pixels, const QColor& color)
{
    return rendered(name, pixels, SymbolWeight::Regular, color);
}

QIcon symbolIcon(const QString& name)
{
    return QIcon(new SymbolIconEngine(name));
}

} // namespace tintwick
