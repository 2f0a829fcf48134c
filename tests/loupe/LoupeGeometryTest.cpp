#include "LoupeGeometry.h"

#include <QTest>

#include <algorithm>

using namespace tintwick;

Q_DECLARE_METATYPE(std::vector<int>)

class LoupeGeometryTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theImageConsistsOfLensGapPillAndShadows_data();
    void theImageConsistsOfLensGapPillAndShadows();
    void cellsFillTheLensOnWholePixels_data();
    void cellsFillTheLensOnWholePixels();
    void cellsAreSymmetricAndNeverLosePixels_data();
    void cellsAreSymmetricAndNeverLosePixels();
    void theCenterCellIsInTheMiddle_data();
    void theCenterCellIsInTheMiddle();
    void theLoupeFollowsThePointerInsideTheScreen_data();
    void theLoupeFollowsThePointerInsideTheScreen();
    void aFingerDoesNotHideTheLoupe_data();
    void aFingerDoesNotHideTheLoupe();
};

void LoupeGeometryTest::theImageConsistsOfLensGapPillAndShadows_data()
{
    QTest::addColumn<double>("side");
    QTest::addColumn<double>("scale");
    QTest::addColumn<QSize>("size");
    QTest::addColumn<QRect>("body");
    QTest::addColumn<QRectF>("inner");
    QTest::addColumn<QRect>("pill");

    // The shadows take 22 points above and on both sides and 14 below.
    QTest::newRow("small") << 100.0 << 1.0 << QSize(144, 192) << QRect(22, 22, 100, 156)
                           << QRectF(25.5, 25.5, 93, 93) << QRect(22, 132, 100, 46);
    QTest::newRow("medium") << 130.0 << 1.0 << QSize(174, 222) << QRect(22, 22, 130, 186)
                            << QRectF(25.5, 25.5, 123, 123) << QRect(22, 162, 130, 46);
    QTest::newRow("large") << 160.0 << 1.0 << QSize(204, 252) << QRect(22, 22, 160, 216)
                           << QRectF(25.5, 25.5, 153, 153) << QRect(22, 192, 160, 46);
    QTest::newRow("medium, scale 1.25") << 130.0 << 1.25 << QSize(219, 279) << QRect(28, 28, 163, 233)
                                        << QRectF(32.375, 32.375, 154.25, 154.25) << QRect(28, 203, 163, 58);
    QTest::newRow("medium, scale 1.5") << 130.0 << 1.5 << QSize(261, 333) << QRect(33, 33, 195, 279)
                                       << QRectF(38.25, 38.25, 184.5, 184.5) << QRect(33, 243, 195, 69);
    QTest::newRow("large, scale 2") << 160.0 << 2.0 << QSize(408, 504) << QRect(44, 44, 320, 432)
                                    << QRectF(51, 51, 306, 306) << QRect(44, 384, 320, 92);
}

void LoupeGeometryTest::theImageConsistsOfLensGapPillAndShadows()
{
    QFETCH(const double, side);
    QFETCH(const double, scale);
    QFETCH(const QRect, body);
    const LoupeGeometry geometry(side, scale);
    QTEST(geometry.size(), "size");
    QCOMPARE(geometry.body(), body);
    QCOMPARE(geometry.lens(), QRect(body.topLeft(), QSize(body.width(), body.width())));
    QTEST(geometry.inner(), "inner");
    QTEST(geometry.pill(), "pill");
}

void LoupeGeometryTest::cellsFillTheLensOnWholePixels_data()
{
    QTest::addColumn<double>("side");
    QTest::addColumn<double>("scale");
    QTest::addColumn<int>("count");
    QTest::addColumn<std::vector<int>>("edges");

    // 123 / 7 = 17.571…: 3.5 + 17.571 = 21.07, 38.64, 56.21, and mirrored
    QTest::newRow("7 cells") << 130.0 << 1.0 << 7 << std::vector{0, 21, 39, 56, 74, 91, 109, 130};
    // 93 / 15 = 6.2: 9.7, 15.9, 22.1, 28.3, 34.5 (down), 40.7, 46.9
    QTest::newRow("15 small cells") << 100.0 << 1.0 << 15 << std::vector{0,  10, 16, 22, 28, 34, 41, 47,
                                                                         53, 59, 66, 72, 78, 84, 90, 100};
    // 306 / 9 = 34
    QTest::newRow("9 cells, scale 2")
        << 160.0 << 2.0 << 9 << std::vector{0, 41, 75, 109, 143, 177, 211, 245, 279, 320};
    QTest::newRow("one cell") << 130.0 << 1.0 << 1 << std::vector{0, 130};
    QTest::newRow("two cells") << 130.0 << 1.0 << 2 << std::vector{0, 65, 130};
}

void LoupeGeometryTest::cellsFillTheLensOnWholePixels()
{
    QFETCH(const double, side);
    QFETCH(const double, scale);
    QFETCH(const int, count);
    QTEST(LoupeGeometry(side, scale).cellEdges(count), "edges");
}

void LoupeGeometryTest::cellsAreSymmetricAndNeverLosePixels_data()
{
    QTest::addColumn<double>("scale");
    for (const double scale : {1.0, 1.25, 1.5, 2.0, 3.0}) {
        QTest::addRow("scale %g", scale) << scale;
    }
}

void LoupeGeometryTest::cellsAreSymmetricAndNeverLosePixels()
{
    QFETCH(const double, scale);
    for (const double side : {100.0, 130.0, 160.0}) {
        for (const int radius : {3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 40}) {
            const int count = 2 * radius + 1;
            const LoupeGeometry geometry(side, scale);
            const std::vector<int> edges = geometry.cellEdges(count);
            QCOMPARE(edges.size(), static_cast<std::size_t>(count) + 1);
            const QRect center = geometry.centerCell(count);
            for (std::size_t i = 0; i < edges.size(); ++i) {
                QCOMPARE(edges[i] + edges[edges.size() - 1 - i], geometry.lens().width());
                if (i > 0) {
                    QVERIFY(edges[i] > edges[i - 1]);
                }
            }
            const auto middle = static_cast<std::size_t>(radius);
            QCOMPARE(center.left(), geometry.lens().left() + edges[middle]);
            QCOMPARE(center.width(), edges[middle + 1] - edges[middle]);
            QVERIFY(center.width() >= geometry.cellSide(count) - 1);
            QVERIFY(center.width() <= geometry.cellSide(count) + 1);
        }
    }
}

void LoupeGeometryTest::theCenterCellIsInTheMiddle_data()
{
    QTest::addColumn<double>("side");
    QTest::addColumn<int>("count");
    QTest::addColumn<QRect>("cell");

    QTest::newRow("15 cells of 8.2") << 130.0 << 15 << QRect(83, 83, 8, 8);
    QTest::newRow("31 cells of 3: halves are rounded outwards") << 100.0 << 31 << QRect(70, 70, 4, 4);
    QTest::newRow("2 cells of 61.5: centred, not on a cell") << 130.0 << 2 << QRect(56, 56, 62, 62);
    QTest::newRow("one cell: the whole inside") << 130.0 << 1 << QRect(25, 25, 124, 124);
}

void LoupeGeometryTest::theCenterCellIsInTheMiddle()
{
    QFETCH(const double, side);
    QFETCH(const int, count);
    QTEST(LoupeGeometry(side, 1).centerCell(count), "cell");
}

void LoupeGeometryTest::theLoupeFollowsThePointerInsideTheScreen_data()
{
    QTest::addColumn<QPointF>("pointer");
    QTest::addColumn<double>("scale");
    QTest::addColumn<QSize>("screen");
    QTest::addColumn<QPointF>("place");

    // At scale 1 the loupe is 130 × 186, its lens 130 × 130.
    const QSize full(1920, 1080);
    const auto row = [](const char* name, QPointF pointer, double scale, QSize screen, QPointF place) {
        QTest::newRow(name) << pointer << scale << screen << place;
    };
    row("middle", {960, 540}, 1, full, {895, 475});
    row("left edge", {0, 540}, 1, full, {4, 475});
    row("right edge", {1919, 540}, 1, full, {1786, 475});
    row("top edge", {960, 0}, 1, full, {895, 4});
    row("bottom edge", {960, 1079}, 1, full, {895, 890});
    row("top left corner", {0, 0}, 1, full, {4, 4});
    row("bottom right corner", {1919, 1079}, 1, full, {1786, 890});
    row("last position limited by the left margin", {69, 540}, 1, full, {4, 475});
    row("one pixel further", {70, 540}, 1, full, {5, 475});
    row("first position limited by the bottom margin", {960, 955}, 1, full, {895, 890});
    row("a fraction", {960.25, 540.5}, 1, full, {895.25, 475.5});
    row("scale 2, middle", {960, 540}, 2, full, {830, 410});
    row("scale 2, bottom left corner", {0, 1079}, 2, full, {8, 700});
    row("scale 2, top right corner", {1919, 0}, 2, full, {1652, 8});
    row("scale 1.25, top right corner", {1919, 0}, 1.25, full, {1752, 5});
    row("outside the screen", {-500, 2000}, 1, full, {4, 890});
    row("too narrow: the left margin takes precedence", {50, 500}, 1, {100, 1000}, {4, 435});
    row("too low: the bottom margin takes precedence", {500, 50}, 1, {1000, 100}, {435, -90});
}

void LoupeGeometryTest::theLoupeFollowsThePointerInsideTheScreen()
{
    QFETCH(const QPointF, pointer);
    QFETCH(const double, scale);
    QFETCH(const QSize, screen);
    const LoupeGeometry geometry(130, scale);
    QTEST(loupePlace(pointer, geometry.body().size(), screen, loupe::screenMargin * scale), "place");
}

void LoupeGeometryTest::aFingerDoesNotHideTheLoupe_data()
{
    QTest::addColumn<QPointF>("finger");
    QTest::addColumn<QPointF>("place");

    // The body measures 130 × 186, the finger hides 40 around it.
    QTest::newRow("above") << QPointF(640, 400) << QPointF(575, 174);
    QTest::newRow("above, at the left edge") << QPointF(10, 400) << QPointF(4, 174);
    QTest::newRow("left of it, near the top") << QPointF(640, 100) << QPointF(470, 35);
    QTest::newRow("right of it, in the top left corner") << QPointF(10, 10) << QPointF(50, 4);
}

void LoupeGeometryTest::aFingerDoesNotHideTheLoupe()
{
    QFETCH(const QPointF, finger);
    QTEST(loupePlaceForFinger(finger, {130, 186}, {1280, 800}, 4, 40), "place");
}

QTEST_APPLESS_MAIN(LoupeGeometryTest)
#include "LoupeGeometryTest.moc"
