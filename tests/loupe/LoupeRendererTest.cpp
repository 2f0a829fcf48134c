#include "LoupeRenderer.h"

#include <QTest>

#include <algorithm>

using namespace tintwick;
using namespace Qt::StringLiterals;

namespace {

constexpr LoupeLook mediumSquare{.isCircle = false, .side = 130};
constexpr LoupeLook mediumCircle{.isCircle = true, .side = 130};

QImage uniformPixels(int count, QRgb color)
{
    QImage pixels(count, count, QImage::Format_RGB32);
    pixels.fill(color);
    return pixels;
}

/// The next frame without the room for the shadows.
QImage bodyOf(LoupeRenderer& view, const LoupeLook& look, double scale)
{
    return view.render(look, scale).copy(LoupeGeometry(look.side, scale).body());
}

/// The range of the red component inside the pill, which depends on the texts.
std::pair<int, int> rangeInPill(const QImage& picture, int scale)
{
    int lowest = 255;
    int highest = 0;
    for (int y = picture.height() - 44 * scale; y < picture.height() - 2 * scale; ++y) {
        for (int x = 12; x < picture.width() - 12; ++x) {
            lowest = std::min(lowest, qRed(picture.pixel(x, y)));
            highest = std::max(highest, qRed(picture.pixel(x, y)));
        }
    }
    return {lowest, highest};
}

} // namespace

class LoupeRendererTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theImageHasTheSizeOfTheLoupe_data();
    void theImageHasTheSizeOfTheLoupe();
    void everyByteIsShownUnchanged();
    void theCenterCellAndThePillShowTheCenterColor_data();
    void theCenterCellAndThePillShowTheCenterColor();
    void cellsKeepTheirColorsUpToTheirEdges_data();
    void cellsKeepTheirColorsUpToTheirEdges();
    void theTopRowOfThePixelsIsAtTheTop();
    void anEmptyLensIsLightWithGridLines();
    void theCenterCellIsOutlinedDarkThenLight();
    void theSeamBetweenRingAndCellsIsOpaque_data();
    void theSeamBetweenRingAndCellsIsOpaque();
    void aCircleHasTransparentCorners();
    void theGapBetweenLensAndPillHasOnlyShadow();
    void theShadowsEndInsideTheImage_data();
    void theShadowsEndInsideTheImage();
    void textIsDarkOnLightAndLightOnDark();
    void withoutACenterColorThePillIsLightGray();
    void withHighContrastTextsAndLinesReachFourAndAHalf_data();
    void withHighContrastTextsAndLinesReachFourAndAHalf();
    void withHighContrastNarrowCellsHaveNoLines();
    void aFrameDoesNotDependOnTheFramesBefore();
};

void LoupeRendererTest::theImageHasTheSizeOfTheLoupe_data()
{
    QTest::addColumn<double>("side");
    QTest::addColumn<double>("scale");
    QTest::addColumn<QSize>("size");
    QTest::newRow("small") << 100.0 << 1.0 << QSize(144, 192);
    QTest::newRow("medium") << 130.0 << 1.0 << QSize(174, 222);
    QTest::newRow("large") << 160.0 << 1.0 << QSize(204, 252);
    QTest::newRow("medium at 1.25") << 130.0 << 1.25 << QSize(219, 279);
    QTest::newRow("medium at 1.5") << 130.0 << 1.5 << QSize(261, 333);
    QTest::newRow("medium at 2") << 130.0 << 2.0 << QSize(348, 444);
}

void LoupeRendererTest::theImageHasTheSizeOfTheLoupe()
{
    QFETCH(const double, side);
    QFETCH(const double, scale);
    LoupeRenderer view;
    const QImage& picture = view.render({.isCircle = false, .side = side}, scale);
    QTEST(picture.size(), "size");
    QCOMPARE(picture.format(), QImage::Format_ARGB32_Premultiplied);
}

void LoupeRendererTest::everyByteIsShownUnchanged()
{
    LoupeRenderer view;
    for (int byte = 0; byte <= 255; ++byte) {
        const QRgb color = qRgb(byte, 255 - byte, byte ^ 0x55);
        view.setPixels(uniformPixels(3, color));
        view.setCenterColor(color);
        const QImage picture = bodyOf(view, mediumSquare, 1);
        const QRgb expected = qRgb(byte, 255 - byte, byte ^ 0x55);
        QCOMPARE(picture.pixel(20, 20), expected);
        QCOMPARE(picture.pixel(65, 65), expected);
        QCOMPARE(picture.pixel(6, 160), expected);
    }
}

void LoupeRendererTest::theCenterCellAndThePillShowTheCenterColor_data()
{
    QTest::addColumn<bool>("isCircle");
    QTest::addColumn<double>("side");
    QTest::addColumn<double>("scale");
    for (const bool isCircle : {false, true}) {
        for (const double side : {100.0, 130.0, 160.0}) {
            for (const double scale : {1.0, 1.25, 1.5, 2.0, 3.0}) {
                QTest::addRow("%s %g at %g", isCircle ? "circle" : "square", side, scale)
                    << isCircle << side << scale;
            }
        }
    }
}

void LoupeRendererTest::theCenterCellAndThePillShowTheCenterColor()
{
    QFETCH(const bool, isCircle);
    QFETCH(const double, side);
    QFETCH(const double, scale);
    LoupeRenderer view;
    for (const int radius : {0, 3, 7, 15, 40}) {
        QImage pixels = uniformPixels(2 * radius + 1, qRgb(250, 240, 230));
        const QRgb center = qRgb(31, 127, 201);
        pixels.setPixel(radius, radius, center);
        view.setPixels(pixels);
        view.setCenterColor(center);
        const QImage picture = bodyOf(view, {.isCircle = isCircle, .side = side}, scale);
        const int centerOfLens = picture.width() / 2;
        QCOMPARE(picture.pixel(centerOfLens, centerOfLens), qRgb(31, 127, 201));
        QCOMPARE(picture.pixel(5, picture.height() - qRound(23 * scale)), qRgb(31, 127, 201));
    }
}

void LoupeRendererTest::cellsKeepTheirColorsUpToTheirEdges_data()
{
    QTest::addColumn<double>("scale");
    QTest::addColumn<int>("count");
    for (const double scale : {1.0, 1.25, 1.5, 2.0, 3.0}) {
        for (const int count : {7, 15, 23, 31}) {
            QTest::addRow("%d cells at %g", count, scale) << scale << count;
        }
    }
}

void LoupeRendererTest::cellsKeepTheirColorsUpToTheirEdges()
{
    QFETCH(const double, scale);
    QFETCH(const int, count);
    // Red is full in every cell and reduced only by a grid line. Blue is the number of the column, so a pixel mixed of
    // two cells has a value between two steps.
    constexpr int step = 7;
    LoupeRenderer view;
    QImage pixels = uniformPixels(count, 0);
    for (int row = 0; row < count; ++row) {
        for (int column = 0; column < count; ++column) {
            pixels.setPixel(column, row, qRgb(255, 0, column * step));
        }
    }
    view.setPixels(pixels);
    const QImage picture = bodyOf(view, mediumSquare, scale);
    // The middle of the second row has no horizontal lines, no corners and no centre cell.
    const double cell = (picture.width() - 7 * scale) / count;
    const int y = static_cast<int>(3.5 * scale + 1.5 * cell);
    QList<int> widths(count, 0);
    int last = 0;
    const int border = static_cast<int>(4 * scale) + 1;
    for (int x = border; x < picture.width() - border; ++x) {
        const QRgb pixel = picture.pixel(x, y);
        QCOMPARE(qAlpha(pixel), 255);
        if (qRed(pixel) == 255) {
            QCOMPARE(qBlue(pixel) % step, 0);
            QVERIFY(qBlue(pixel) / step >= last);
            last = qBlue(pixel) / step;
            ++widths[last];
        }
    }
    for (int c = 1; c < count - 1; ++c) {
        QVERIFY2(widths[c] >= cell - 1 - std::max(1.0, 0.5 * scale) - 0.5, qPrintable(QString::number(c)));
        QVERIFY2(widths[c] <= cell + 1, qPrintable(QString::number(c)));
    }
}

void LoupeRendererTest::theTopRowOfThePixelsIsAtTheTop()
{
    LoupeRenderer view;
    QImage pixels = uniformPixels(3, qRgb(0, 0, 255));
    pixels.setPixel(0, 0, qRgb(255, 0, 0));
    pixels.setPixel(1, 0, qRgb(0, 255, 0));
    pixels.setPixel(2, 0, qRgb(255, 255, 0));
    view.setPixels(pixels);
    const QImage picture = bodyOf(view, mediumSquare, 1);
    QCOMPARE(picture.pixel(20, 20), qRgb(255, 0, 0));
    QCOMPARE(picture.pixel(65, 20), qRgb(0, 255, 0));
    QCOMPARE(picture.pixel(110, 20), qRgb(255, 255, 0));
    QCOMPARE(picture.pixel(20, 110), qRgb(0, 0, 255));
}

void LoupeRendererTest::anEmptyLensIsLightWithGridLines()
{
    LoupeRenderer view;
    const QImage picture = bodyOf(view, mediumSquare, 1);
    // 0.94 × 255 = 239.7. Cells of 8.2 from 3.5: the columns end at 12, 20, 28, 36, ...
    const QRgb field = qRgb(240, 240, 240);
    // A line of half a pixel at 0.13, drawn as a whole pixel: 240 × (1 − 0.065)
    const QRgb line = qRgb(224, 224, 224);
    const int y = 32;
    QCOMPARE(picture.pixel(10, y), field);
    QCOMPARE(picture.pixel(11, y), line);
    QCOMPARE(picture.pixel(12, y), field);
    QCOMPARE(picture.pixel(18, y), field);
    QCOMPARE(picture.pixel(19, y), line);
    QCOMPARE(picture.pixel(20, y), field);
    // The lines on the other half mirror these.
    QCOMPARE(picture.pixel(117, y), field);
    QCOMPARE(picture.pixel(118, y), line);
    QCOMPARE(picture.pixel(119, y), field);
    // Crossing lines do not add up.
    QCOMPARE(picture.pixel(19, 19), line);
    QCOMPARE(picture.pixel(32, 11), line);
}

void LoupeRendererTest::theCenterCellIsOutlinedDarkThenLight()
{
    LoupeRenderer view;
    view.setPixels(uniformPixels(15, qRgb(200, 0, 0)));
    const QImage picture = bodyOf(view, mediumSquare, 1);
    // The cell spans 61 to 69. A dark line of width 1.5 takes one pixel on either side of its edge, a light line the
    // next pixel.
    const QRgb dark = qRgb(13, 13, 13);
    QCOMPARE(picture.pixel(65, 65), qRgb(200, 0, 0));
    QCOMPARE(picture.pixel(62, 65), qRgb(200, 0, 0));
    QCOMPARE(picture.pixel(61, 65), dark);
    QCOMPARE(picture.pixel(60, 65), dark);
    // White at 0.8 over the red
    QCOMPARE(picture.pixel(59, 65), qRgb(244, 204, 204));
    QCOMPARE(picture.pixel(58, 65), qRgb(200, 0, 0));
    QCOMPARE(picture.pixel(67, 65), qRgb(200, 0, 0));
    QCOMPARE(picture.pixel(68, 65), dark);
    QCOMPARE(picture.pixel(69, 65), dark);
    QCOMPARE(picture.pixel(70, 65), qRgb(244, 204, 204));
    QCOMPARE(picture.pixel(71, 65), qRgb(200, 0, 0));
    QCOMPARE(picture.pixel(65, 60), dark);
    QCOMPARE(picture.pixel(65, 59), qRgb(244, 204, 204));
    QCOMPARE(picture.pixel(65, 70), qRgb(244, 204, 204));
}

void LoupeRendererTest::theSeamBetweenRingAndCellsIsOpaque_data()
{
    QTest::addColumn<bool>("isCircle");
    QTest::addColumn<double>("scale");
    for (const bool isCircle : {false, true}) {
        for (const double scale : {1.0, 1.25, 1.5, 2.0, 3.0}) {
            QTest::addRow("%s at %g", isCircle ? "circle" : "square", scale) << isCircle << scale;
        }
    }
}

void LoupeRendererTest::theSeamBetweenRingAndCellsIsOpaque()
{
    QFETCH(const bool, isCircle);
    QFETCH(const double, scale);
    LoupeRenderer view;
    view.setPixels(uniformPixels(15, qRgb(255, 255, 255)));
    const QImage picture = bodyOf(view, {.isCircle = isCircle, .side = 130}, scale);
    const double middle = picture.width() / 2.0;
    int translucent = 0;
    for (int y = 0; y < picture.width(); ++y) {
        const auto* row = reinterpret_cast<const QRgb*>(picture.constScanLine(y));
        for (int x = 0; x < picture.width(); ++x) {
            const double dx = x + 0.5 - middle;
            const double dy = y + 0.5 - middle;
            // Inside the circle, without the outermost pixel, which is antialiased.
            if (dx * dx + dy * dy < (middle - 1.5) * (middle - 1.5) && qAlpha(row[x]) != 255) {
                ++translucent;
            }
        }
    }
    QCOMPARE(translucent, 0);
    // 0.07 × 255 = 17.85
    const int y = picture.width() / 2;
    for (int x = 0; x + 1 <= 3.5 * scale; ++x) {
        if (x > 0 || !isCircle) {
            QCOMPARE(picture.pixel(x, y), qRgb(18, 18, 18));
        }
    }
}

void LoupeRendererTest::aCircleHasTransparentCorners()
{
    LoupeRenderer view;
    view.setPixels(uniformPixels(15, qRgb(255, 255, 255)));
    const QImage picture = bodyOf(view, mediumCircle, 1);
    // 10 pixels from both edges is outside the inscribed circle, and inside the rounded corner of the square.
    for (const QPoint corner : {QPoint(10, 10), QPoint(119, 10), QPoint(10, 119), QPoint(119, 119)}) {
        QVERIFY(qAlpha(picture.pixel(corner)) < 100);
    }
    QCOMPARE(qAlpha(bodyOf(view, mediumSquare, 1).pixel(10, 10)), 255);
}

void LoupeRendererTest::theGapBetweenLensAndPillHasOnlyShadow()
{
    LoupeRenderer view;
    view.setPixels(uniformPixels(15, qRgb(255, 255, 255)));
    const QImage picture = bodyOf(view, mediumSquare, 1);
    for (int y = 130; y < 140; ++y) {
        const auto* row = reinterpret_cast<const QRgb*>(picture.constScanLine(y));
        for (int x = 0; x < picture.width(); ++x) {
            QCOMPARE(row[x] & 0xFFFFFF, 0U);
            QVERIFY(qAlpha(row[x]) < 80);
        }
        // The shadow is offset downwards, so part of it is below the ring.
        QVERIFY(qAlpha(row[65]) > 10);
    }
}

void LoupeRendererTest::theShadowsEndInsideTheImage_data()
{
    theCenterCellAndThePillShowTheCenterColor_data();
}

void LoupeRendererTest::theShadowsEndInsideTheImage()
{
    QFETCH(const bool, isCircle);
    QFETCH(const double, side);
    QFETCH(const double, scale);
    LoupeRenderer view;
    const QImage& picture = view.render({.isCircle = isCircle, .side = side}, scale);
    int strongest = 0;
    for (int x = 0; x < picture.width(); ++x) {
        strongest = std::max(
            {strongest, qAlpha(picture.pixel(x, 0)), qAlpha(picture.pixel(x, picture.height() - 1))});
    }
    for (int y = 0; y < picture.height(); ++y) {
        strongest =
            std::max({strongest, qAlpha(picture.pixel(0, y)), qAlpha(picture.pixel(picture.width() - 1, y))});
    }
    QCOMPARE(strongest, 0);
    // It becomes weaker with the distance from the ring.
    const int besideTheLens = picture.height() / 2;
    const QList<double> distances{2, 8, 14};
    int last = 255;
    for (const double distance : distances) {
        const int alpha = qAlpha(picture.pixel(qRound((22 - distance) * scale), besideTheLens));
        QVERIFY2(alpha > 0 && alpha < last, qPrintable(QString::number(alpha)));
        last = alpha;
    }
}

void LoupeRendererTest::textIsDarkOnLightAndLightOnDark()
{
    LoupeRenderer view;
    view.setCenterColor(qRgb(255, 255, 255));
    const auto [darkest, paper] = rangeInPill(bodyOf(view, mediumSquare, 2), 2);
    QCOMPARE(paper, 255);
    // 0.08 at 0.95 over white is 32; thin strokes are a little lighter.
    QVERIFY2(darkest < 60, qPrintable(QString::number(darkest)));

    view.setCenterColor(qRgb(0, 0, 0));
    const auto [slate, lightest] = rangeInPill(bodyOf(view, mediumSquare, 2), 2);
    QCOMPARE(slate, 0);
    // White at 0.97 over black is 247.
    QVERIFY2(lightest > 220, qPrintable(QString::number(lightest)));
}

void LoupeRendererTest::withHighContrastTextsAndLinesReachFourAndAHalf_data()
{
    QTest::addColumn<QRgb>("color");
    QTest::addColumn<QRgb>("contrast");
    const QRgb black = qRgb(0, 0, 0);
    const QRgb white = qRgb(255, 255, 255);
    // The contrast ratios are those of WCAG 2.
    QTest::newRow("white, 21") << qRgb(255, 255, 255) << black;
    QTest::newRow("black, 21") << qRgb(0, 0, 0) << white;
    QTest::newRow("red, 5.25") << qRgb(255, 0, 0) << black;
    QTest::newRow("blue, 8.59") << qRgb(0, 0, 255) << white;
    QTest::newRow("lime, 15.3") << qRgb(0, 255, 0) << black;
    QTest::newRow("the darkest grey below black lines, 4.62") << qRgb(118, 118, 118) << black;
    QTest::newRow("the lightest grey below white lines, 4.61") << qRgb(117, 117, 117) << white;
}

void LoupeRendererTest::withHighContrastTextsAndLinesReachFourAndAHalf()
{
    QFETCH(const QRgb, color);
    QFETCH(const QRgb, contrast);
    constexpr LoupeLook look{.isCircle = false, .side = 130, .hasHighContrast = true};
    LoupeRenderer view;
    view.setPixels(uniformPixels(15, color));
    view.setCenterColor(color);
    // Cells of 8.2 from 3.5: the columns end at 12, 20, 28, 36, ...
    const QImage picture = bodyOf(view, look, 1);
    QCOMPARE(picture.pixel(10, 32), color);
    QCOMPARE(picture.pixel(11, 32), contrast);
    QCOMPARE(picture.pixel(12, 32), color);
    QCOMPARE(picture.pixel(118, 32), contrast);
    QCOMPARE(picture.pixel(32, 19), contrast);
    QCOMPARE(picture.pixel(19, 19), contrast);
    QCOMPARE(picture.pixel(65, 65), color);
    // The lower half of the pill has the second line only. At scale 3 its stems are wider than a pixel.
    const QImage large = bodyOf(view, look, 3);
    int count = 0;
    for (int y = large.height() - 20 * 3; y < large.height() - 2 * 3; ++y) {
        for (int x = 12 * 3; x < large.width() - 12 * 3; ++x) {
            count += large.pixel(x, y) == contrast ? 1 : 0;
        }
    }
    QVERIFY2(count > 20, qPrintable(QString::number(count)));
}

void LoupeRendererTest::withHighContrastNarrowCellsHaveNoLines()
{
    LoupeRenderer view;
    view.setPixels(uniformPixels(81, qRgb(200, 0, 0)));
    const QImage picture = bodyOf(view, {.isCircle = false, .side = 130, .hasHighContrast = true}, 1);
    for (int x = 20; x < 55; ++x) {
        QCOMPARE(picture.pixel(x, 30), qRgb(200, 0, 0));
    }
}

void LoupeRendererTest::withoutACenterColorThePillIsLightGray()
{
    LoupeRenderer view;
    view.setCenterColor(qRgb(0, 0, 0));
    view.setCenterColor(std::nullopt);
    // 0.95 × 255 = 242.25
    QCOMPARE(bodyOf(view, mediumSquare, 1).pixel(6, 160), qRgb(242, 242, 242));
}

void LoupeRendererTest::aFrameDoesNotDependOnTheFramesBefore()
{
    LoupeRenderer fresh;
    fresh.setPixels(uniformPixels(15, qRgb(1, 2, 3)));
    fresh.setCenterColor(qRgb(1, 2, 3));
    const QImage expected = fresh.render(mediumSquare, 1).copy();

    LoupeRenderer used;
    used.setPixels(uniformPixels(31, qRgb(200, 210, 220)));
    used.setCenterColor(qRgb(200, 210, 220));
    used.render(mediumSquare, 1);
    used.render(mediumCircle, 2);
    used.setPixels({});
    used.render(mediumSquare, 1);
    used.setPixels(uniformPixels(15, qRgb(1, 2, 3)));
    used.setCenterColor(qRgb(1, 2, 3));
    QCOMPARE(used.render(mediumSquare, 1), expected);
}

QTEST_MAIN(LoupeRendererTest)
#include "LoupeRendererTest.moc"
