#include "FreeArea.h"

#include <QTest>

using namespace tintwick;

using Edge = Strut::Edge;
using Struts = std::vector<Strut>;

Q_DECLARE_METATYPE(Struts)

/// The free area of monitors beside bars.
class FreeAreaTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void barsAreLeftOut_data();
    void barsAreLeftOut();
};

void FreeAreaTest::barsAreLeftOut_data()
{
    QTest::addColumn<QRect>("monitor");
    QTest::addColumn<QSize>("root");
    QTest::addColumn<QRect>("workArea");
    QTest::addColumn<Struts>("struts");
    QTest::addColumn<QRect>("free");

    const QSize one(1920, 1080);
    const QRect whole(0, 0, 1920, 1080);
    QTest::newRow("nothing reported") << whole << one << QRect() << Struts{} << whole;
    QTest::newRow("the work area of one monitor")
        << whole << one << QRect(48, 24, 1800, 1000) << Struts{} << QRect(48, 24, 1800, 1000);
    QTest::newRow("a bar of one monitor, with its work area")
        << whole << one << QRect(0, 24, 1920, 1056) << Struts{{Edge::Top, 24, 0, 1919}}
        << QRect(0, 24, 1920, 1056);
    QTest::newRow("a bar without a work area")
        << whole << one << QRect() << Struts{{Edge::Bottom, 40}} << QRect(0, 0, 1920, 1040);
    QTest::newRow("margins of the window manager beside a bar")
        << whole << one << QRect(10, 24, 1900, 1046) << Struts{{Edge::Top, 24, 0, 1919}}
        << QRect(10, 24, 1900, 1046);
    QTest::newRow("the deeper of two bars at an edge")
        << whole << one << QRect() << Struts{{Edge::Top, 30, 0, 1919}, {Edge::Top, 24, 0, 1919}}
        << QRect(0, 30, 1920, 1050);

    // A monitor on the left, and a higher one on the right.
    const QSize two(3200, 1080);
    const QRect left(0, 0, 1280, 800);
    const QRect right(1280, 0, 1920, 1080);
    const Struts onTheRight{{Edge::Right, 23, 300, 700}};
    QTest::newRow("a bar at the right edge of the second")
        << right << two << QRect(0, 0, 3177, 1080) << onTheRight << QRect(1280, 0, 1897, 1080);
    QTest::newRow("its bar leaves the first alone")
        << left << two << QRect(0, 0, 3177, 1080) << onTheRight << left;
    const Struts topOfRight{{Edge::Top, 24, 1280, 3199}};
    QTest::newRow("a bar on top of the second")
        << right << two << QRect(0, 24, 3200, 1056) << topOfRight << QRect(1280, 24, 1920, 1056);
    QTest::newRow("the work area cut by that bar leaves the first alone")
        << left << two << QRect(0, 24, 3200, 1056) << topOfRight << left;
    // Reported from the bottom of the root window, 280 below that of the monitor.
    QTest::newRow("a bar at the bottom of the lower one")
        << left << two << QRect(0, 0, 3200, 760) << Struts{{Edge::Bottom, 320, 0, 1279}}
        << QRect(0, 0, 1280, 760);
    QTest::newRow("a bar between the two")
        << left << two << QRect() << Struts{{Edge::Right, 1960, 0, 799}} << QRect(0, 0, 1240, 800);
    QTest::newRow("it does not take the whole second")
        << right << two << QRect() << Struts{{Edge::Right, 1960, 0, 799}} << right;

    const QSize stacked(1280, 1600);
    const QRect below(0, 800, 1280, 800);
    QTest::newRow("a bar on top of the lower of two stacked ones")
        << below << stacked << QRect() << Struts{{Edge::Top, 824, 0, 1279}} << QRect(0, 824, 1280, 776);
    QTest::newRow("the upper one is free") << QRect(0, 0, 1280, 800) << stacked << QRect()
                                           << Struts{{Edge::Top, 824, 0, 1279}} << QRect(0, 0, 1280, 800);
}

void FreeAreaTest::barsAreLeftOut()
{
    QFETCH(const QRect, monitor);
    QFETCH(const QSize, root);
    QFETCH(const QRect, workArea);
    QFETCH(const Struts, struts);
    QFETCH(const QRect, free);
    QCOMPARE(freeArea(monitor, root, workArea, struts), free);
}

QTEST_APPLESS_MAIN(FreeAreaTest)
#include "FreeAreaTest.moc"
