#include "LogicalGrid.h"

#include <QTest>

using namespace tintwick;

class LogicalGridTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theCoverOfARectangle_data();
    void theCoverOfARectangle();
    void anyScaleStaysOnTheOutput();
};

void LogicalGridTest::theCoverOfARectangle_data()
{
    QTest::addColumn<QSize>("logical");
    QTest::addColumn<QSize>("pixels");
    QTest::addColumn<QRect>("wanted");
    QTest::addColumn<QRect>("logicalCover");
    QTest::addColumn<QRect>("pixelCover");
    const QSize full(1200, 900);
    QTest::newRow("scale 1") << full << full << QRect(13, 7, 50, 60) << QRect(13, 7, 50, 60)
                             << QRect(13, 7, 50, 60);
    QTest::newRow("scale 2") << full / 2 << full << QRect(13, 7, 50, 60) << QRect(6, 3, 26, 31)
                             << QRect(12, 6, 52, 62);
    QTest::newRow("scale 1.5") << QSize(800, 600) << full << QRect(13, 7, 50, 60) << QRect(8, 4, 34, 42)
                               << QRect(12, 6, 51, 63);
    QTest::newRow("scale 1.25") << QSize(960, 720) << full << QRect(13, 7, 50, 60) << QRect(8, 4, 44, 52)
                                << QRect(10, 5, 55, 65);
    QTest::newRow("beyond the left and the top")
        << full / 2 << full << QRect(-5, -9, 20, 20) << QRect(0, 0, 8, 6) << QRect(0, 0, 16, 12);
    QTest::newRow("beyond the right and the bottom")
        << full / 2 << full << QRect(1190, 890, 50, 50) << QRect(595, 445, 5, 5) << QRect(1190, 890, 10, 10);
    QTest::newRow("a length that is no whole number of units")
        << QSize(911, 512) << QSize(1366, 768) << QRect(1360, 0, 20, 3) << QRect(906, 0, 5, 2)
        << QRect(1359, 0, 7, 3);
}

void LogicalGridTest::theCoverOfARectangle()
{
    QFETCH(const QSize, logical);
    QFETCH(const QSize, pixels);
    QFETCH(const QRect, wanted);
    QFETCH(const QRect, logicalCover);
    QFETCH(const QRect, pixelCover);
    const auto cover = LogicalGrid(logical, pixels).cover(wanted);
    QCOMPARE(cover.logical, logicalCover);
    QCOMPARE(cover.pixels, pixelCover);
}

void LogicalGridTest::anyScaleStaysOnTheOutput()
{
    const QSize pixels(1367, 769);
    for (int width = 500; width < 1367; width += 7) {
        const LogicalGrid grid({width, width / 2}, pixels);
        for (int x = -30; x < 1400; x += 11) {
            const auto cover = grid.cover({x, x / 2, 60, 40});
            QVERIFY(QRect(0, 0, width, width / 2).contains(cover.logical) || cover.logical.isEmpty());
            QVERIFY(QRect(QPoint(), pixels).contains(cover.pixels) || cover.pixels.isEmpty());
        }
    }
}

QTEST_GUILESS_MAIN(LogicalGridTest)
#include "LogicalGridTest.moc"
