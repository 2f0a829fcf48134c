#include "PanelPlacement.h"

#include <QTest>

#include <optional>

using namespace tintwick;

using Anchor = std::optional<QRect>;

Q_DECLARE_METATYPE(Anchor)
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

Anchor icon(int x, int y, int width = 24, int height = 24)
{
    return QRect(x, y, width, height);
}

Anchor click(int x, int y)
{
    return QRect(x, y, 1, 1);
}

} // namespace

class PanelPlacementTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void placesThePanelBesideItsAnchor_data();
    void placesThePanelBesideItsAnchor();
};

void PanelPlacementTest::placesThePanelBesideItsAnchor_data()
{
    QTest::addColumn<Anchor>("anchor");
    QTest::addColumn<QList<PanelScreen>>("screens");
    QTest::addColumn<QPoint>("topLeft");
    QTest::addColumn<int>("height");
    using Screens = QList<PanelScreen>;

    QTest::newRow("centred below the icon") << icon(900, 0) << Screens{bare} << QPoint(722, 24) << 580;
    QTest::newRow("8 points from the right edge")
        << icon(1890, 0) << Screens{bare} << QPoint(1532, 24) << 580;
    QTest::newRow("8 points from the left edge") << icon(4, 0) << Screens{bare} << QPoint(8, 24) << 580;
    QTest::newRow("the icon's centre is 198 points from the right edge: still centred")
        << icon(1710, 0) << Screens{bare} << QPoint(1532, 24) << 580;
    QTest::newRow("the icon's centre is 197 points from the right edge: not centred")
        << icon(1711, 0) << Screens{bare} << QPoint(1532, 24) << 580;
    QTest::newRow("below the bar that contains a smaller icon")
        << icon(900, 4, 16, 16) << Screens{barOnTop} << QPoint(718, 24) << 580;
    QTest::newRow("above a bar at the bottom")
        << icon(900, 1048) << Screens{barBelow} << QPoint(722, 460) << 580;
    QTest::newRow("above an icon at the bottom of a monitor without a bar")
        << icon(900, 1056) << Screens{bare} << QPoint(722, 476) << 580;
    QTest::newRow("its bottom may be the bottom of the monitor")
        << icon(900, 476) << Screens{bare} << QPoint(722, 500) << 580;
    QTest::newRow("beside the icon when it would end below the monitor")
        << icon(900, 477, 24, 200) << Screens{bare} << QPoint(924, 287) << 580;
    QTest::newRow("to the right of a bar on the left")
        << icon(12, 490, 24, 24) << Screens{PanelScreen{{0, 0, 1920, 1000}, {48, 0, 1872, 1000}}}
        << QPoint(56, 212) << 580;
    QTest::newRow("to the left of a bar on the right")
        << icon(1884, 490, 24, 24) << Screens{PanelScreen{{0, 0, 1920, 1000}, {0, 0, 1872, 1000}}}
        << QPoint(1484, 212) << 580;
    QTest::newRow("below an icon at the top of a bar on the left")
        << icon(12, 10) << Screens{barOnTheLeft} << QPoint(56, 34) << 580;
    QTest::newRow("above an icon at the bottom of a bar on the right")
        << icon(1884, 1040) << Screens{barOnTheRight} << QPoint(1484, 460) << 580;
    QTest::newRow("as high as a low monitor") << icon(900, 0) << Screens{low} << QPoint(636, 24) << 576;
    QTest::newRow("as high as the room above a bar at the bottom")
        << icon(900, 576) << Screens{PanelScreen{{0, 0, 1024, 600}, {0, 0, 1024, 576}}} << QPoint(636, 0)
        << 576;
    QTest::newRow("beside an icon on a low monitor without a bar")
        << icon(900, 0) << Screens{PanelScreen{{0, 0, 1024, 500}, {0, 0, 1024, 500}}} << QPoint(520, 0)
        << 500;
    QTest::newRow("no anchor, low monitor") << Anchor{} << Screens{low} << QPoint(636, 24) << 576;
    QTest::newRow("on a monitor narrower than the panel the left margin takes precedence")
        << icon(290, 0) << Screens{narrow} << QPoint(8, 24) << 580;

    QTest::newRow("on the second monitor it stays on the second")
        << icon(1925, 0) << Screens{bare, toTheRight} << QPoint(1928, 24) << 580;
    QTest::newRow("on a monitor left of the primary one")
        << icon(-30, 0) << Screens{bare, toTheLeft} << QPoint(-388, 24) << 580;
    QTest::newRow("an icon outside every monitor counts for the nearest")
        << icon(3300, 0) << Screens{bare, toTheRight} << QPoint(2812, 24) << 580;

    QTest::newRow("a click on a bar at the top")
        << click(900, 12) << Screens{barOnTop} << QPoint(710, 24) << 580;
    QTest::newRow("a click on a bar at the bottom")
        << click(900, 1060) << Screens{barBelow} << QPoint(710, 460) << 580;
    QTest::newRow("a click on the second monitor")
        << click(3190, 10) << Screens{bare, toTheRight} << QPoint(2812, 11) << 580;

    QTest::newRow("no anchor: top right of the primary monitor")
        << Anchor{} << Screens{bare, toTheRight} << QPoint(1532, 0) << 580;
    QTest::newRow("no anchor, with a bar") << Anchor{} << Screens{barOnTop} << QPoint(1532, 24) << 580;
    QTest::newRow("no anchor, narrow monitor") << Anchor{} << Screens{narrow} << QPoint(8, 0) << 580;
    QTest::newRow("no monitor") << icon(900, 0) << Screens{} << QPoint(0, 0) << 580;
}

void PanelPlacementTest::placesThePanelBesideItsAnchor()
{
    QFETCH(const Anchor, anchor);
    QFETCH(const QList<PanelScreen>, screens);
    QFETCH(const QPoint, topLeft);
    QFETCH(const int, height);
    QCOMPARE(placePanel(anchor, screens, panel), QRect(topLeft, QSize(380, height)));
}

QTEST_MAIN(PanelPlacementTest)
#include "PanelPlacementTest.moc"
