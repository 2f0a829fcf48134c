#include "Reordering.h"

#include <QTest>

using namespace tintwick;

class ReorderingTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theGapIsAtTheNearestSlot_data();
    void theGapIsAtTheNearestSlot();
    void aCarriedRowStaysInTheList_data();
    void aCarriedRowStaysInTheList();
    void theOtherRowsMakeRoom_data();
    void theOtherRowsMakeRoom();
    void theDestinationIsCountedBeforeTheMove_data();
    void theDestinationIsCountedBeforeTheMove();
    void theListScrollsFasterCloserToAnEdge_data();
    void theListScrollsFasterCloserToAnEdge();
};

void ReorderingTest::theGapIsAtTheNearestSlot_data()
{
    QTest::addColumn<double>("top");
    QTest::addColumn<qsizetype>("slot");
    const auto row = [](const char* name, double top, qsizetype slot) { QTest::newRow(name) << top << slot; };
    row("at the top", 0, 0);
    row("not yet half way", 24.9, 0);
    row("half way", 25, 1);
    row("at a slot", 100, 2);
    row("in the last slot", 150, 3);
    row("beyond the end", 400, 3);
    row("above the start", -80, 0);
}

void ReorderingTest::theGapIsAtTheNearestSlot()
{
    QFETCH(const double, top);
    QFETCH(const qsizetype, slot);
    QCOMPARE(gapUnder(top, 50, 4), slot);
}

void ReorderingTest::aCarriedRowStaysInTheList_data()
{
    QTest::addColumn<double>("wanted");
    QTest::addColumn<qsizetype>("count");
    QTest::addColumn<double>("top");
    QTest::newRow("inside") << 63.0 << qsizetype{4} << 63.0;
    QTest::newRow("above") << -10.0 << qsizetype{4} << 0.0;
    QTest::newRow("below") << 151.0 << qsizetype{4} << 150.0;
    QTest::newRow("the only row") << 30.0 << qsizetype{1} << 0.0;
    QTest::newRow("no row") << 30.0 << qsizetype{0} << 0.0;
}

void ReorderingTest::aCarriedRowStaysInTheList()
{
    QFETCH(const double, wanted);
    QFETCH(const qsizetype, count);
    QFETCH(const double, top);
    QCOMPARE(carriedTop(wanted, 50, count), top);
}

void ReorderingTest::theOtherRowsMakeRoom_data()
{
    QTest::addColumn<qsizetype>("carried");
    QTest::addColumn<qsizetype>("gap");
    QTest::addColumn<QList<qsizetype>>("places");
    const auto row = [](const char* name, qsizetype carried, qsizetype gap, const QList<qsizetype>& places) {
        QTest::newRow(name) << carried << gap << places;
    };
    // The value for the carried row itself has no meaning.
    row("unmoved", 2, 2, {0, 1, 2, 3, 4});
    row("down by one", 1, 2, {0, 1, 1, 3, 4});
    row("down to the end", 1, 4, {0, 1, 1, 2, 3});
    row("up by one", 3, 2, {0, 1, 3, 3, 4});
    row("up to the start", 3, 0, {1, 2, 3, 3, 4});
}

void ReorderingTest::theOtherRowsMakeRoom()
{
    QFETCH(const qsizetype, carried);
    QFETCH(const qsizetype, gap);
    QFETCH(const QList<qsizetype>, places);
    for (qsizetype row = 0; row < places.size(); ++row) {
        if (row != carried) {
            QCOMPARE(slotBeside(row, carried, gap), places[row]);
        }
    }
}

void ReorderingTest::theDestinationIsCountedBeforeTheMove_data()
{
    QTest::addColumn<qsizetype>("carried");
    QTest::addColumn<qsizetype>("gap");
    QTest::addColumn<qsizetype>("to");
    QTest::newRow("down by one") << qsizetype{1} << qsizetype{2} << qsizetype{3};
    QTest::newRow("down to the end of five") << qsizetype{1} << qsizetype{4} << qsizetype{5};
    QTest::newRow("up by one") << qsizetype{3} << qsizetype{2} << qsizetype{2};
    QTest::newRow("up to the start") << qsizetype{3} << qsizetype{0} << qsizetype{0};
    QTest::newRow("no move") << qsizetype{2} << qsizetype{2} << qsizetype{2};
}

void ReorderingTest::theDestinationIsCountedBeforeTheMove()
{
    QFETCH(const qsizetype, carried);
    QFETCH(const qsizetype, gap);
    QFETCH(const qsizetype, to);
    QCOMPARE(destination(carried, gap), to);
}

void ReorderingTest::theListScrollsFasterCloserToAnEdge_data()
{
    QTest::addColumn<double>("pointer");
    QTest::addColumn<double>("speed");
    // 36 points at each end of 400 visible points.
    QTest::newRow("in the middle") << 200.0 << 0.0;
    QTest::newRow("where the lower edge begins") << 364.0 << 0.0;
    QTest::newRow("half way into the lower edge") << 382.0 << 450.0;
    QTest::newRow("at the lower end") << 400.0 << 900.0;
    QTest::newRow("below") << 700.0 << 900.0;
    QTest::newRow("half way into the upper edge") << 18.0 << -450.0;
    QTest::newRow("above") << -50.0 << -900.0;
}

void ReorderingTest::theListScrollsFasterCloserToAnEdge()
{
    QFETCH(const double, pointer);
    QFETCH(const double, speed);
    QCOMPARE(edgeScrollSpeed(pointer, 0, 400), speed);
}

QTEST_APPLESS_MAIN(ReorderingTest)
#include "ReorderingTest.moc"
