#include "PanelPlacement.h"

#include <QTest>

using namespace tintwick;

Q_DECLARE_METATYPE(tintwick::PanelAnchor)
Q_DECLARE_METATYPE(QList<tintwick::PanelScreen>)

namespace {

constexpr QSize panel(380, 580);

const PanelScreen bare{{0, 0, 1920, 1080}, {0, 0, 1920, 1080}};
const PanelScreen barOnTop{{0, 0, 1920, 1080}, {0, 24, 1920, 1056}};
const PanelScreen barBelow{{0, 0, 1920, 1080}, {0, 0, 1920, 1040}};
const PanelScreen barOnTheLeft{{0, 0, 1920, 1080}, {48, 0, 1872, 1080}};
const PanelScreen barOnTheRight{{0, 0, 1920, 1080}, {0, 0, 1872, 1080}};
const PanelScreen toTheRight{{1920, 0, 1280, 1024}, {1920, 0, 1280, 1024}};
const PanelScreen toTheLeft{{-1280, 0, 1280, 1024}, {-1280, 0, 1280, 1024}};
const PanelScreen low{{0, 0, 1024, 600}, {0, 24, 1024, 576}};
const PanelScreen narrow{{0, 0, 320, 900}, {0, 0, 320, 900}};

PanelAnchor icon(int x, int y, int width = 24, int height = 24)
{
    return {QRect(x, y, width, height), std::nullopt};
}

PanelAnchor click(int x, int y)
{
    return {std::nullopt, QPoint(x, y)};
}

} // namespace

class PanelPlacementTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void thePanelIsWhereItsAnchorPutsIt_data();
    void thePanelIsWhereItsAnchorPutsIt();
};

void PanelPlacementTest::thePanelIsWhereItsAnchorPutsIt_data()
{
    QTest::addColumn<PanelAnchor>("anchor");
    QTest::addColumn<QList<PanelScreen>>("screens");
    QTest::addColumn<QPoint>("topLeft");
    QTest::addColumn<int>("height");
    using Screens = QList<PanelScreen>;

    QTest::newRow("it hangs centred under the icon")
        << icon(900, 0) << Screens{bare} << QPoint(722, 24) << 580;
    QTest::newRow("near the right edge it ends 8 points inside")
        << icon(1890, 0) << Screens{bare} << QPoint(1532, 24) << 580;
    QTest::newRow("near the left edge it begins 8 points inside")
        << icon(4, 0) << Screens{bare} << QPoint(8, 24) << 580;
    QTest::newRow("a centre 198 from the right edge just fits")
        << icon(1710, 0) << Screens{bare} << QPoint(1532, 24) << 580;
    QTest::newRow("one point less does not") << icon(1711, 0) << Screens{bare} << QPoint(1532, 24) << 580;
    QTest::newRow("it hangs from the bar, not from the icon in it")
        << icon(900, 4, 16, 16) << Screens{barOnTop} << QPoint(718, 24) << 580;
    QTest::newRow("from a bar below it stands up")
        << icon(900, 1048) << Screens{barBelow} << QPoint(722, 460) << 580;
    QTest::newRow("from an icon at the foot of a screen without a bar it stands on the icon")
        << icon(900, 1056) << Screens{bare} << QPoint(722, 476) << 580;
    QTest::newRow("it may end where the screen ends")
        << icon(900, 476) << Screens{bare} << QPoint(722, 500) << 580;
    QTest::newRow("but no lower") << icon(900, 477, 24, 200) << Screens{bare} << QPoint(924, 287) << 580;
    QTest::newRow("from the middle of a bar on the left it comes out to the right")
        << icon(12, 490, 24, 24) << Screens{PanelScreen{{0, 0, 1920, 1000}, {48, 0, 1872, 1000}}}
        << QPoint(56, 212) << 580;
    QTest::newRow("from the middle of a bar on the right it comes out to the left")
        << icon(1884, 490, 24, 24) << Screens{PanelScreen{{0, 0, 1920, 1000}, {0, 0, 1872, 1000}}}
        << QPoint(1484, 212) << 580;
    QTest::newRow("from the top of a bar on the left")
        << icon(12, 10) << Screens{barOnTheLeft} << QPoint(56, 34) << 580;
    QTest::newRow("from the foot of a bar on the right")
        << icon(1884, 1040) << Screens{barOnTheRight} << QPoint(1484, 460) << 580;
    QTest::newRow("on a low screen it is as high as there is room")
        << icon(900, 0) << Screens{low} << QPoint(636, 24) << 576;
    QTest::newRow("and above a bar at the foot of it")
        << icon(900, 576) << Screens{PanelScreen{{0, 0, 1024, 600}, {0, 0, 1024, 576}}} << QPoint(636, 0)
        << 576;
    QTest::newRow("from an icon on a low screen that keeps no bar free it comes out sideways")
        << icon(900, 0) << Screens{PanelScreen{{0, 0, 1024, 500}, {0, 0, 1024, 500}}} << QPoint(520, 0)
        << 500;
    QTest::newRow("without an anchor on a low screen")
        << PanelAnchor{} << Screens{low} << QPoint(636, 24) << 576;
    QTest::newRow("on a screen narrower than itself the left bound wins")
        << icon(290, 0) << Screens{narrow} << QPoint(8, 24) << 580;

    QTest::newRow("on the second screen it stays on the second")
        << icon(1925, 0) << Screens{bare, toTheRight} << QPoint(1928, 24) << 580;
    QTest::newRow("on a screen left of the primary one")
        << icon(-30, 0) << Screens{bare, toTheLeft} << QPoint(-388, 24) << 580;
    QTest::newRow("an icon outside every screen belongs to the nearest")
        << icon(3300, 0) << Screens{bare, toTheRight} << QPoint(2812, 24) << 580;

    QTest::newRow("a click on a bar above") << click(900, 12) << Screens{barOnTop} << QPoint(710, 24) << 580;
    QTest::newRow("a click on a bar below")
        << click(900, 1060) << Screens{barBelow} << QPoint(710, 460) << 580;
    QTest::newRow("a click on the second screen")
        << click(3190, 10) << Screens{bare, toTheRight} << QPoint(2812, 11) << 580;
    QTest::newRow("the icon's place is better than the click's")
        << PanelAnchor{QRect(900, 0, 24, 24), QPoint(300, 12)} << Screens{bare} << QPoint(722, 24) << 580;

    QTest::newRow("without an anchor: top right of the primary screen")
        << PanelAnchor{} << Screens{bare, toTheRight} << QPoint(1532, 0) << 580;
    QTest::newRow("without an anchor a bar stays free")
        << PanelAnchor{} << Screens{barOnTop} << QPoint(1532, 24) << 580;
    QTest::newRow("without an anchor on a narrow screen")
        << PanelAnchor{} << Screens{narrow} << QPoint(8, 0) << 580;
    QTest::newRow("without a screen") << icon(900, 0) << Screens{} << QPoint(0, 0) << 580;
}

void PanelPlacementTest::thePanelIsWhereItsAnchorPutsIt()
{
    QFETCH(const PanelAnchor, anchor);
    QFETCH(const QList<PanelScreen>, screens);
    QFETCH(const QPoint, topLeft);
    QFETCH(const int, height);
    QCOMPARE(placePanel(anchor, screens, panel), QRect(topLeft, QSize(380, height)));
}

QTEST_MAIN(PanelPlacementTest)
#include "PanelPlacementTest.moc"
