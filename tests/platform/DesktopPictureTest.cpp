#include "DesktopPicture.h"
#include "support/Pattern.h"

#include <QTest>

#include <vector>

using namespace tintwick;

using Monitors = std::vector<MonitorPlace>;
using Positions = std::vector<std::vector<QPoint>>;

Q_DECLARE_METATYPE(Monitors)
Q_DECLARE_METATYPE(Positions)

/// A picture of the whole desktop becomes one for each monitor.
class DesktopPictureTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void eachMonitorGetsItsOwnPixels_data();
    void eachMonitorGetsItsOwnPixels();
    void aPictureOfAnotherSizeIsNotBelieved_data();
    void aPictureOfAnotherSizeIsNotBelieved();
};

void DesktopPictureTest::eachMonitorGetsItsOwnPixels_data()
{
    QTest::addColumn<QSize>("desktop");
    QTest::addColumn<Monitors>("monitors");
    // Of each monitor: where its first and its last pixel are in the picture.
    QTest::addColumn<Positions>("corners");
    QTest::newRow("one monitor") << QSize(1280, 800) << Monitors{{{0, 0, 1280, 800}, {1280, 800}}}
                                 << Positions{{{0, 0}, {1279, 799}}};
    QTest::newRow("one at scale 2") << QSize(1280, 800) << Monitors{{{0, 0, 640, 400}, {1280, 800}}}
                                    << Positions{{{0, 0}, {1279, 799}}};
    QTest::newRow("a logical size that was rounded up")
        << QSize(1367, 768) << Monitors{{{0, 0, 911, 512}, {1366, 768}}} << Positions{{{0, 0}, {1365, 767}}};
    QTest::newRow("a logical size that was rounded down")
        << QSize(1365, 768) << Monitors{{{0, 0, 910, 512}, {1366, 768}}} << Positions{{{0, 0}, {1364, 767}}};
    QTest::newRow("two at scale 1.5 beside each other")
        << QSize(3840, 1200)
        << Monitors{{{0, 0, 1280, 800}, {1920, 1200}}, {{1280, 0, 1280, 800}, {1920, 1200}}}
        << Positions{{{0, 0}, {1919, 1199}}, {{1920, 0}, {3839, 1199}}};
    QTest::newRow("the first is on the right")
        << QSize(2560, 1100)
        << Monitors{{{1280, 300, 1280, 800}, {1280, 800}}, {{0, 0, 1280, 800}, {1280, 800}}}
        << Positions{{{1280, 300}, {2559, 1099}}, {{0, 0}, {1279, 799}}};
    QTest::newRow("left of and above the origin")
        << QSize(2560, 900)
        << Monitors{{{0, 0, 1280, 800}, {1280, 800}}, {{-1280, -100, 1280, 800}, {1280, 800}}}
        << Positions{{{1280, 100}, {2559, 899}}, {{0, 0}, {1279, 799}}};
    QTest::newRow("scale 1 beside scale 3: the middle of the nine pixels")
        << QSize(1200, 600) << Monitors{{{0, 0, 200, 200}, {600, 600}}, {{200, 0, 200, 200}, {200, 200}}}
        << Positions{{{0, 0}, {599, 599}}, {{601, 1}, {1198, 598}}};
    QTest::newRow("positions that are no whole pixels")
        << QSize(5445, 1803)
        << Monitors{{{0, 0, 1704, 1065}, {2560, 1600}}, {{1704, 0, 1920, 1200}, {1920, 1200}}}
        << Positions{{{0, 0}, {2559, 1599}}, {{2560, 0}, {5443, 1802}}};
}

void DesktopPictureTest::eachMonitorGetsItsOwnPixels()
{
    QFETCH(const QSize, desktop);
    QFETCH(const Monitors, monitors);
    QFETCH(const Positions, corners);
    const std::vector<QImage> pictures = cutDesktopPicture(patternImage({QPoint(), desktop}), monitors);
    QCOMPARE(pictures.size(), monitors.size());
    for (std::size_t i = 0; i < pictures.size(); ++i) {
        QCOMPARE(pictures[i].size(), monitors[i].pixels);
        QCOMPARE(pictures[i].pixel(0, 0), patternPixel(corners[i][0].x(), corners[i][0].y()));
        QCOMPARE(pictures[i].pixel(pictures[i].width() - 1, pictures[i].height() - 1),
                 patternPixel(corners[i][1].x(), corners[i][1].y()));
    }
}

void DesktopPictureTest::aPictureOfAnotherSizeIsNotBelieved_data()
{
    QTest::addColumn<QSize>("desktop");
    QTest::addColumn<Monitors>("monitors");
    const Monitors two{{{0, 0, 640, 400}, {1280, 800}}, {{640, 0, 640, 400}, {1280, 800}}};
    QTest::newRow("of one monitor only") << QSize(1280, 800) << two;
    QTest::newRow("in logical pixels") << QSize(1280, 400) << two;
    QTest::newRow("too high") << QSize(2560, 820) << two;
    QTest::newRow("empty") << QSize(0, 0) << two;
    QTest::newRow("no monitors") << QSize(2560, 800) << Monitors{};
    QTest::newRow("a monitor without a place") << QSize(2560, 800) << Monitors{{{}, {1280, 800}}};
    QTest::newRow("a monitor without pixels") << QSize(2560, 800) << Monitors{{{0, 0, 640, 400}, {}}};
}

void DesktopPictureTest::aPictureOfAnotherSizeIsNotBelieved()
{
    QFETCH(const QSize, desktop);
    QFETCH(const Monitors, monitors);
    QVERIFY(cutDesktopPicture(patternImage({QPoint(), desktop}), monitors).empty());
}

QTEST_GUILESS_MAIN(DesktopPictureTest)
#include "DesktopPictureTest.moc"
