#include "Paint.h"
#include "Corners.h"
#include "Shadow.h"
#include "Symbol.h"

#include <QPainter>
#include <QTest>
#include <QWidget>

using namespace tintwick;
using namespace Qt::StringLiterals;

namespace {

QImage blank(int width, int height, double scale = 1)
{
    QImage image(qRound(width * scale), qRound(height * scale), QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(scale);
    image.fill(Qt::transparent);
    return image;
}

QRect inkOf(const QImage& image)
{
    QRect ink;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (qAlpha(image.pixel(x, y)) > 0) {
                ink |= QRect(x, y, 1, 1);
            }
        }
    }
    return ink;
}

} // namespace

class PaintTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aCornerStaysWithinItsBounds_data();
    void aCornerStaysWithinItsBounds();
    void aRadiusTooLargeMakesACapsule();
    void checksBeginWhiteInTheTopLeftCorner_data();
    void checksBeginWhiteInTheTopLeftCorner();
    void checksEndAtTheEdge();
    void anEmptyRectHasNoChecks();
    void checksAreClippedAtTheCorners();
    void aStrokeLiesInside();
    void aShadowIsPaintedInEveryPaintedRegion_data();
    void aShadowIsPaintedInEveryPaintedRegion();
    void aShadowReportsItsExtents_data();
    void aShadowReportsItsExtents();
    void aShadowStaysWithinItsExtents_data();
    void aShadowStaysWithinItsExtents();
    void aShadowHasNoSeams_data();
    void aShadowHasNoSeams();
    void aGrowingShadowHasNoSeams();
    void aShadowBetweenTwoMixesBoth();
    void aMovingShadowIsBlurredOnce();
    void shadowsOfOneShapeAreBlurredOnce();
    void everySymbolDraws_data();
    void everySymbolDraws();
    void anUnknownSymbolDrawsNothing();
    void weightsHaveDifferentStrokes();
};

// A shape of 100 × 100 with radius 20. The middle of each corner is a circular arc.
void PaintTest::aCornerStaysWithinItsBounds_data()
{
    QTest::addColumn<QPointF>("point");
    QTest::addColumn<bool>("inside");
    // The arc's middle is 20·(1 − 1/√2) = 5.858 from both sides.
    QTest::newRow("just inside the middle of the arc") << QPointF(5.9, 5.9) << true;
    QTest::newRow("just outside of it") << QPointF(5.8, 5.8) << false;
    // The arc begins at 20·(1 − sin 22.5°) = 12.346, 20·(1 − cos 22.5°) = 1.522.
    QTest::newRow("inside the arc's beginning") << QPointF(12.346, 1.56) << true;
    QTest::newRow("outside the arc's beginning") << QPointF(12.346, 1.48) << false;
    // A circular arc would still touch the side here. The continuous corner does not.
    QTest::newRow("outside, where a circular corner touches the side") << QPointF(20, 0.05) << false;
    QTest::newRow("just inside the same place") << QPointF(20, 0.25) << true;
    QTest::newRow("where the side is straight") << QPointF(25.7, 0.01) << true;
    QTest::newRow("the opposite corner") << QPointF(94.1, 94.1) << true;
    QTest::newRow("outside the opposite corner") << QPointF(94.2, 94.2) << false;
}

void PaintTest::aCornerStaysWithinItsBounds()
{
    QFETCH(const QPointF, point);
    QTEST(roundedPath(QRectF(0, 0, 100, 100), 20).contains(point), "inside");
}

void PaintTest::aRadiusTooLargeMakesACapsule()
{
    const QPainterPath path = roundedPath(QRectF(0, 0, 60, 20), 1000);
    QCOMPARE(path.boundingRect(), QRectF(0, 0, 60, 20));
    QVERIFY(path.contains(QPointF(30, 0.01)));
    QVERIFY(!path.contains(QPointF(2.8, 2.8)));
    QVERIFY(path.contains(QPointF(3, 3)));
}

void PaintTest::checksBeginWhiteInTheTopLeftCorner_data()
{
    QTest::addColumn<QPoint>("pixel");
    QTest::addColumn<QRgb>("color");
    const QRgb white = qRgb(255, 255, 255);
    const QRgb gray = qRgb(191, 191, 191);
    QTest::newRow("first") << QPoint(0, 0) << white;
    QTest::newRow("first, its end") << QPoint(3, 3) << white;
    QTest::newRow("right of the first") << QPoint(4, 0) << gray;
    QTest::newRow("below the first") << QPoint(0, 4) << gray;
    QTest::newRow("diagonal to the first") << QPoint(4, 4) << white;
    QTest::newRow("third column") << QPoint(9, 0) << white;
}

void PaintTest::checksBeginWhiteInTheTopLeftCorner()
{
    QFETCH(const QPoint, pixel);
    QImage image = blank(10, 10);
    QPainter painter(&image);
    drawCheckerboard(painter, QRectF(0, 0, 10, 10), 0);
    painter.end();
    QTEST(image.pixel(pixel), "color");
}

void PaintTest::checksEndAtTheEdge()
{
    QImage image = blank(20, 20);
    QPainter painter(&image);
    drawCheckerboard(painter, QRectF(2, 2, 10, 6), 0);
    painter.end();
    QCOMPARE(inkOf(image), QRect(2, 2, 10, 6));
    QCOMPARE(image.pixel(11, 2), qRgb(255, 255, 255));
}

void PaintTest::anEmptyRectHasNoChecks()
{
    QImage image = blank(20, 20);
    QPainter painter(&image);
    drawCheckerboard(painter, QRectF(2, 2, 0, 6), 0);
    painter.end();
    QVERIFY(inkOf(image).isNull());
}

void PaintTest::checksAreClippedAtTheCorners()
{
    QImage image = blank(20, 20);
    QPainter painter(&image);
    drawCheckerboard(painter, QRectF(0, 0, 20, 20), 7);
    painter.end();
    QCOMPARE(image.pixel(0, 0), qRgba(0, 0, 0, 0));
    QCOMPARE(image.pixel(19, 19), qRgba(0, 0, 0, 0));
    QCOMPARE(image.pixel(9, 0), qRgb(255, 255, 255));
    QCOMPARE(image.pixel(13, 1), qRgb(191, 191, 191));
}

void PaintTest::aStrokeLiesInside()
{
    QImage image = blank(40, 40);
    QPainter painter(&image);
    strokeInside(painter, QRectF(10, 10, 20, 20), 0, Qt::black, 2);
    painter.end();
    QCOMPARE(inkOf(image), QRect(10, 10, 20, 20));
    QCOMPARE(image.pixel(10, 20), qRgb(0, 0, 0));
    QCOMPARE(image.pixel(11, 20), qRgb(0, 0, 0));
    QCOMPARE(qAlpha(image.pixel(12, 20)), 0);
}

void PaintTest::aShadowIsPaintedInEveryPaintedRegion_data()
{
    QTest::addColumn<double>("devicePixelRatio");
    QTest::addColumn<QRect>("asked");
    for (const double ratio : {1.0, 1.25, 2.0}) {
        const auto row = [ratio](const char* name, const QRect& asked) {
            QTest::addRow("%s at %g", name, ratio) << ratio << asked;
        };
        row("all", {0, 0, 100, 100});
        row("a part", {30, 30, 20, 20});
        row("the faint edge", {0, 70, 100, 8});
        row("beside the shape", {80, 80, 10, 10});
    }
}

void PaintTest::aShadowIsPaintedInEveryPaintedRegion()
{
    QFETCH(const double, devicePixelRatio);
    QFETCH(const QRect, asked);
    class Widget final : public QWidget
    {
    public:
        void paintEvent(QPaintEvent*) override
        {
            QPainter painter(this);
            drawShadow(painter, QRectF(25, 25, 40, 40), 7,
                       {.color = theme::black, .radius = 8, .offset = {0, 2}}, Scheme::Light);
        }
    };
    Widget widget;
    widget.resize(100, 100);
    const auto picture = [&](const QRect& part) {
        QImage image(widget.size() * devicePixelRatio, QImage::Format_ARGB32_Premultiplied);
        image.setDevicePixelRatio(devicePixelRatio);
        image.fill(Qt::transparent);
        widget.render(&image, part.topLeft(), part, {});
        return image;
    };
    QImage expected(picture(widget.rect()).size(), QImage::Format_ARGB32_Premultiplied);
    expected.setDevicePixelRatio(devicePixelRatio);
    expected.fill(Qt::transparent);
    QPainter painter(&expected);
    painter.setClipRect(asked);
    drawShadow(painter, QRectF(25, 25, 40, 40), 7, {.color = theme::black, .radius = 8, .offset = {0, 2}},
               Scheme::Light);
    painter.end();
    QCOMPARE(picture(asked), expected);
}

void PaintTest::aShadowReportsItsExtents_data()
{
    QTest::addColumn<double>("radius");
    QTest::addColumn<QPointF>("offset");
    QTest::addColumn<QMargins>("extents");
    QTest::newRow("panel") << 24.0 << QPointF(0, 8) << QMargins(36, 28, 36, 44);
    QTest::newRow("swatch") << 6.0 << QPointF(0, 3) << QMargins(9, 6, 9, 12);
    QTest::newRow("card") << 3.0 << QPointF(0, 2) << QMargins(5, 3, 5, 7);
    QTest::newRow("sharp") << 0.0 << QPointF(0, 2) << QMargins(0, 0, 0, 2);
}

void PaintTest::aShadowReportsItsExtents()
{
    QFETCH(const double, radius);
    QFETCH(const QPointF, offset);
    const Shadow shadow{.color = theme::black, .radius = radius, .offset = offset};
    QTEST(shadow.extents(), "extents");
}

void PaintTest::aShadowStaysWithinItsExtents_data()
{
    QTest::addColumn<double>("scale");
    QTest::newRow("1") << 1.0;
    QTest::newRow("1.25") << 1.25;
    QTest::newRow("1.5") << 1.5;
    QTest::newRow("2") << 2.0;
}

void PaintTest::aShadowStaysWithinItsExtents()
{
    QFETCH(const double, scale);
    const Shadow shadow{.color = theme::black, .radius = 6, .offset = {0, 3}};
    QImage image = blank(120, 120, scale);
    QPainter painter(&image);
    drawShadow(painter, QRectF(28, 28, 64, 64), 14, shadow, Scheme::Light);
    painter.end();
    const QRect allowed =
        QRectF(19 * scale, 22 * scale, 82 * scale, 82 * scale).toAlignedRect().adjusted(-1, -1, 1, 1);
    QVERIFY(allowed.contains(inkOf(image)));
    // Full in the middle and half at the edge of the shape, which is moved down by 3.
    const auto at = [&](double x, double y) { return qAlpha(image.pixel(int(x * scale), int(y * scale))); };
    QCOMPARE(at(60, 60), 255);
    QVERIFY(std::abs(at(28, 63) - 127) < 40);
    QVERIFY(at(60, 22.5) < at(60, 28));
}

void PaintTest::aShadowHasNoSeams_data()
{
    aShadowStaysWithinItsExtents_data();
}

void PaintTest::aShadowHasNoSeams()
{
    QFETCH(const double, scale);
    const Shadow shadow{.color = theme::black.opacity(0.5), .radius = 8, .offset = {0, 2}};
    QImage image = blank(360, 120, scale);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    drawShadow(painter, QRectF(17, 23, 321, 64), 14, shadow, Scheme::Light);
    painter.end();
    const int y = qRound(55 * scale);
    const int left = qRound(40 * scale);
    for (int x = left; x < qRound(310 * scale); ++x) {
        const int alpha = qAlpha(image.pixel(x, y));
        QVERIFY2(alpha == 127 || alpha == 128, qPrintable(u"%1 at %2"_s.arg(alpha).arg(x)));
    }
}

void PaintTest::aGrowingShadowHasNoSeams()
{
    const Shadow shadow{.color = theme::black.opacity(0.5), .radius = 8, .offset = {0, 2}};
    const QRectF rect(17, 23, 321, 64);
    for (const double scale : {1.0021, 1.0073, 1.0312, 1.05}) {
        QImage image = blank(380, 120);
        QPainter painter(&image);
        scaleAboutMiddle(painter, rect, scale);
        drawShadow(painter, rect, 14, shadow, Scheme::Light);
        painter.end();
        for (int x = 40; x < 310; ++x) {
            const int alpha = qAlpha(image.pixel(x, 55));
            QVERIFY2(alpha == 127 || alpha == 128, qPrintable(u"%1 at %2"_s.arg(alpha).arg(x)));
        }
    }
}

void PaintTest::aShadowBetweenTwoMixesBoth()
{
    const Shadow from{.color = theme::black.opacity(0.2), .radius = 3, .offset = {0, 1}};
    const Shadow to{.color = theme::black.opacity(0.6), .radius = 8, .offset = {0, 3}};
    const auto alphaAt = [&](double fraction, double opacity) {
        QImage image = blank(100, 100);
        QPainter painter(&image);
        painter.setOpacity(opacity);
        drawShadowBetween(painter, QRectF(20, 20, 60, 60), 7, from, to, fraction, Scheme::Light);
        return qAlpha(image.pixel(50, 50));
    };
    QCOMPARE(alphaAt(0, 1), 51);
    QCOMPARE(alphaAt(1, 1), 153);
    // One half of each, composed: 0.1 + 0.3 - 0.1 * 0.3.
    QVERIFY(std::abs(alphaAt(0.5, 1) - 94) <= 1);
    QVERIFY(std::abs(alphaAt(1, 0.5) - 77) <= 1);
}

void PaintTest::aMovingShadowIsBlurredOnce()
{
    const Shadow from{.color = theme::black.opacity(0.21), .radius = 3, .offset = {0, 1}};
    const Shadow to{.color = theme::black.opacity(0.51), .radius = 8, .offset = {0, 3}};
    const QRectF rect(20, 20, 60, 60);
    const int before = blurCount();
    for (int frame = 0; frame <= 60; ++frame) {
        QImage image = blank(100, 100);
        QPainter painter(&image);
        scaleAboutMiddle(painter, rect, 1 + frame * 0.001);
        drawShadowBetween(painter, rect, 9, from, to, frame / 60.0, Scheme::Light);
    }
    QCOMPARE(blurCount() - before, 2);
}

void PaintTest::shadowsOfOneShapeAreBlurredOnce()
{
    const int before = blurCount();
    QImage image = blank(100, 100);
    QPainter painter(&image);
    for (int pass = 0; pass < 2; ++pass) {
        for (int i = 0; i < 100; ++i) {
            const theme::Color color(i / 100.0, 1 - i / 100.0, 0.5);
            drawShadow(painter, QRectF(20, 20, 60, 60), 11, {color.opacity(0.2), 3, QPointF(0, 1)},
                       Scheme::Light);
        }
    }
    QCOMPARE(blurCount() - before, 1);
}

void PaintTest::everySymbolDraws_data()
{
    QTest::addColumn<QString>("name");
    const QStringList names{u"open"_s,
                            u"check-circle"_s,
                            u"chevron-left"_s,
                            u"chevron-right"_s,
                            u"auto-mode"_s,
                            u"braces"_s,
                            u"copy"_s,
                            u"copy-filled"_s,
                            u"document"_s,
                            u"eyedropper"_s,
                            u"eyedropper-filled"_s,
                            u"settings"_s,
                            u"dark-mode"_s,
                            u"palette"_s,
                            u"palette-filled"_s,
                            u"image"_s,
                            u"add"_s,
                            u"add-circle"_s,
                            u"share"_s,
                            u"light-mode"_s,
                            u"delete"_s,
                            u"close"_s};
    for (const QString& name : names) {
        QTest::newRow(qPrintable(name)) << name;
    }
}

void PaintTest::everySymbolDraws()
{
    QFETCH(const QString, name);
    for (const double scale : {1.0, 1.25, 1.5, 2.0}) {
        const QPixmap pixmap = symbolPixmap(name, 10, SymbolWeight::Semibold, Qt::red, scale);
        QCOMPARE(pixmap.width(), qRound(13 * scale));
        const QImage image = pixmap.toImage();
        const QRect ink = inkOf(image);
        QVERIFY2(ink.width() >= image.width() / 3 && ink.height() >= image.height() / 2, "hardly any ink");
        QCOMPARE(QColor(image.pixelColor(ink.center())).green(), 0);
    }
}

void PaintTest::anUnknownSymbolDrawsNothing()
{
    QVERIFY(symbolPixmap(u"no-such-symbol", 14, SymbolWeight::Regular, Qt::black, 1).isNull());
}

void PaintTest::weightsHaveDifferentStrokes()
{
    const auto inkAmount = [](SymbolWeight weight) {
        const QImage image = symbolPixmap(u"add", 20, weight, Qt::black, 2).toImage();
        int sum = 0;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                sum += qAlpha(image.pixel(x, y));
            }
        }
        return sum;
    };
    QVERIFY(inkAmount(SymbolWeight::Regular) < inkAmount(SymbolWeight::Medium));
    QVERIFY(inkAmount(SymbolWeight::Medium) < inkAmount(SymbolWeight::Semibold));
}

QTEST_MAIN(PaintTest)
#include "PaintTest.moc"
