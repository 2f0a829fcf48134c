#include "LoupeGeometry.h"

#include <QTest>

#include <algorithm>

using namespace tintwick;

Q_DECLARE_METATYPE(tintwick::GlobalPoint)
Q_DECLARE_METATYPE(tintwick::GlobalRect)
Q_DECLARE_METATYPE(std::vector<tintwick::Screen>)
Q_DECLARE_METATYPE(std::vector<int>)

class LoupeGeometryTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void thePictureIsMadeOfScopeGapAndPill_data();
    void thePictureIsMadeOfScopeGapAndPill();
    void cellsFillTheScopeOnWholePixels_data();
    void cellsFillTheScopeOnWholePixels();
    void cellsAreSymmetricAndNeverLosePixels_data();
    void cellsAreSymmetricAndNeverLosePixels();
    void theCenterCellIsInTheMiddle_data();
    void theCenterCellIsInTheMiddle();
    void theLoupeFollowsThePointerInsideTheScreen_data();
    void theLoupeFollowsThePointerInsideTheScreen();
    void thePointerIsOnTheScreenThatContainsIt_data();
    void thePointerIsOnTheScreenThatContainsIt();
    void withoutScreensThePointerIsOnNone();
};

void LoupeGeometryTest::thePictureIsMadeOfScopeGapAndPill_data()
{
    QTest::addColumn<double>("side");
    QTest::addColumn<double>("scale");
    QTest::addColumn<QSize>("size");
    QTest::addColumn<QRect>("scope");
    QTest::addColumn<QRectF>("inner");
    QTest::addColumn<QRect>("pill");

    QTest::newRow("small") << 100.0 << 1.0 << QSize(100, 156) << QRect(0, 0, 100, 100)
                           << QRectF(3.5, 3.5, 93, 93) << QRect(0, 110, 100, 46);
    QTest::newRow("medium") << 130.0 << 1.0 << QSize(130, 186) << QRect(0, 0, 130, 130)
                            << QRectF(3.5, 3.5, 123, 123) << QRect(0, 140, 130, 46);
    QTest::newRow("large") << 160.0 << 1.0 << QSize(160, 216) << QRect(0, 0, 160, 160)
                           << QRectF(3.5, 3.5, 153, 153) << QRect(0, 170, 160, 46);
    QTest::newRow("medium, scale 1.25") << 130.0 << 1.25 << QSize(163, 233) << QRect(0, 0, 163, 163)
                                        << QRectF(4.375, 4.375, 154.25, 154.25) << QRect(0, 175, 163, 58);
    QTest::newRow("medium, scale 1.5") << 130.0 << 1.5 << QSize(195, 279) << QRect(0, 0, 195, 195)
                                       << QRectF(5.25, 5.25, 184.5, 184.5) << QRect(0, 210, 195, 69);
    QTest::newRow("large, scale 2") << 160.0 << 2.0 << QSize(320, 432) << QRect(0, 0, 320, 320)
                                    << QRectF(7, 7, 306, 306) << QRect(0, 340, 320, 92);
}

void LoupeGeometryTest::thePictureIsMadeOfScopeGapAndPill()
{
    QFETCH(const double, side);
    QFETCH(const double, scale);
    const LoupeGeometry geometry(side, scale);
    QTEST(geometry.size(), "size");
    QTEST(geometry.scope(), "scope");
    QTEST(geometry.inner(), "inner");
    QTEST(geometry.pill(), "pill");
}

void LoupeGeometryTest::cellsFillTheScopeOnWholePixels_data()
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

void LoupeGeometryTest::cellsFillTheScopeOnWholePixels()
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
                QCOMPARE(edges[i] + edges[edges.size() - 1 - i], geometry.size().width());
                if (i > 0) {
                    QVERIFY(edges[i] > edges[i - 1]);
                }
            }
            const auto middle = static_cast<std::size_t>(radius);
            QCOMPARE(center.left(), edges[middle]);
            QCOMPARE(center.left() + center.width(), edges[middle + 1]);
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

    QTest::newRow("15 cells of 8.2") << 130.0 << 15 << QRect(61, 61, 8, 8);
    QTest::newRow("31 cells of 3: a half goes outwards") << 100.0 << 31 << QRect(48, 48, 4, 4);
    QTest::newRow("2 cells of 61.5: on the middle, not on a cell") << 130.0 << 2 << QRect(34, 34, 62, 62);
    QTest::newRow("one cell: all of the inside") << 130.0 << 1 << QRect(3, 3, 124, 124);
}

void LoupeGeometryTest::theCenterCellIsInTheMiddle()
{
    QFETCH(const double, side);
    QFETCH(const int, count);
    QTEST(LoupeGeometry(side, 1).centerCell(count), "cell");
}

void LoupeGeometryTest::theLoupeFollowsThePointerInsideTheScreen_data()
{
    QTest::addColumn<GlobalPoint>("pointer");
    QTest::addColumn<double>("scale");
    QTest::addColumn<GlobalRect>("screen");
    QTest::addColumn<GlobalPoint>("origin");

    // The loupe is 130 × 186 points: the scope's middle lies 65 from the left and 121 above the bottom.
    const GlobalRect full{0, 0, 1920, 1080};
    QTest::newRow("middle") << GlobalPoint{960, 540} << 1.0 << full << GlobalPoint{895, 419};
    QTest::newRow("left edge") << GlobalPoint{0, 540} << 1.0 << full << GlobalPoint{4, 419};
    QTest::newRow("right edge") << GlobalPoint{1919, 540} << 1.0 << full << GlobalPoint{1786, 419};
    QTest::newRow("top edge") << GlobalPoint{960, 1080} << 1.0 << full << GlobalPoint{895, 890};
    QTest::newRow("bottom edge") << GlobalPoint{960, 1} << 1.0 << full << GlobalPoint{895, 4};
    QTest::newRow("bottom left corner") << GlobalPoint{0, 1} << 1.0 << full << GlobalPoint{4, 4};
    QTest::newRow("bottom right corner") << GlobalPoint{1919, 1} << 1.0 << full << GlobalPoint{1786, 4};
    QTest::newRow("top left corner") << GlobalPoint{0, 1080} << 1.0 << full << GlobalPoint{4, 890};
    QTest::newRow("top right corner") << GlobalPoint{1919, 1080} << 1.0 << full << GlobalPoint{1786, 890};
    QTest::newRow("just free of the left margin")
        << GlobalPoint{69, 540} << 1.0 << full << GlobalPoint{4, 419};
    QTest::newRow("one further") << GlobalPoint{70, 540} << 1.0 << full << GlobalPoint{5, 419};
    QTest::newRow("just free of the bottom margin")
        << GlobalPoint{960, 125} << 1.0 << full << GlobalPoint{895, 4};
    QTest::newRow("a fractional pointer")
        << GlobalPoint{960.25, 540.5} << 1.0 << full << GlobalPoint{895.25, 419.5};

    QTest::newRow("scale 2, middle") << GlobalPoint{960, 540} << 2.0 << full << GlobalPoint{830, 298};
    QTest::newRow("scale 2, bottom left corner") << GlobalPoint{0, 1} << 2.0 << full << GlobalPoint{8, 8};
    QTest::newRow("scale 2, top right corner")
        << GlobalPoint{1919, 1080} << 2.0 << full << GlobalPoint{1652, 700};
    // 163 × 233 pixels, a margin of 5: 1920 − 163 − 5 and 1080 − 233 − 5
    QTest::newRow("scale 1.25, top right corner")
        << GlobalPoint{1919, 1080} << 1.25 << full << GlobalPoint{1752, 842};

    const GlobalRect left{-1280, -200, 1280, 1024};
    QTest::newRow("left screen, its right edge")
        << GlobalPoint{-1, 300} << 1.0 << left << GlobalPoint{-134, 179};
    QTest::newRow("left screen, bottom left")
        << GlobalPoint{-1280, -199} << 1.0 << left << GlobalPoint{-1276, -196};
    const GlobalRect above{300, 1080, 800, 600};
    QTest::newRow("screen above, its bottom")
        << GlobalPoint{700, 1081} << 1.0 << above << GlobalPoint{635, 1084};
    QTest::newRow("screen above, its top left")
        << GlobalPoint{300, 1680} << 1.0 << above << GlobalPoint{304, 1490};

    QTest::newRow("too narrow: the left margin wins")
        << GlobalPoint{50, 500} << 1.0 << GlobalRect{0, 0, 100, 1000} << GlobalPoint{4, 379};
    QTest::newRow("too low: the bottom margin wins")
        << GlobalPoint{500, 50} << 1.0 << GlobalRect{0, 0, 1000, 100} << GlobalPoint{435, 4};
}

void LoupeGeometryTest::theLoupeFollowsThePointerInsideTheScreen()
{
    QFETCH(const GlobalPoint, pointer);
    QFETCH(const double, scale);
    QFETCH(const GlobalRect, screen);
    QFETCH(const GlobalPoint, origin);
    const LoupeGeometry geometry(130, scale);
    const GlobalPoint actual =
        loupeOrigin(pointer, geometry.size(), geometry.scope().width(), screen, loupe::screenMargin * scale);
    QCOMPARE(actual.x, origin.x);
    QCOMPARE(actual.y, origin.y);
}

void LoupeGeometryTest::thePointerIsOnTheScreenThatContainsIt_data()
{
    QTest::addColumn<GlobalPoint>("pointer");
    QTest::addColumn<int>("index");

    // The top edge belongs to a screen, the bottom edge to the one below.
    QTest::newRow("primary") << GlobalPoint{100, 100} << 0;
    QTest::newRow("primary, top left pixel") << GlobalPoint{0, 1080} << 0;
    QTest::newRow("primary, bottom right pixel") << GlobalPoint{1919, 1} << 0;
    QTest::newRow("right, leftmost column") << GlobalPoint{1920, 500} << 1;
    QTest::newRow("left, rightmost column") << GlobalPoint{-1, 500} << 2;
    QTest::newRow("above, bottom row") << GlobalPoint{400, 1081} << 3;
    QTest::newRow("above, top row") << GlobalPoint{400, 1680} << 3;
    QTest::newRow("the part of the right one below the primary") << GlobalPoint{2000, -100} << 1;
    QTest::newRow("nowhere: the primary") << GlobalPoint{5000, 5000} << 0;
    QTest::newRow("below everything: the primary") << GlobalPoint{100, 0} << 0;
}

void LoupeGeometryTest::thePointerIsOnTheScreenThatContainsIt()
{
    QFETCH(const GlobalPoint, pointer);
    QFETCH(const int, index);
    const std::vector<Screen> screens{
        {.frame = {1280, 600, 1920, 1080}, .scale = 1},
        {.frame = {3200, 600, 2560, 1440}, .scale = 2},
        {.frame = {0, 600, 1280, 1024}, .scale = 1},
        {.frame = {1280, 0, 800, 600}, .scale = 1.5},
    };
    QCOMPARE(screenAt(pointer, screens), screens[static_cast<std::size_t>(index)]);
}

void LoupeGeometryTest::withoutScreensThePointerIsOnNone()
{
    QVERIFY(!screenAt({10, 10}, {}).has_value());
}

QTEST_APPLESS_MAIN(LoupeGeometryTest)
#include "LoupeGeometryTest.moc"
