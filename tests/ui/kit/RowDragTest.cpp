#include "RowDrag.h"

#include <QTest>

using namespace tintwick;

class RowDragTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aShortMoveIsNoDrag();
    void aCarriedRowFollowsThePointer();
    void otherRowsMakeRoom();
    void aDropReportsTheMove_data();
    void aDropReportsTheMove();
    void aCancelledDragDropsNothing();
    void scrollStepsKeepTheFraction();

private:
    static constexpr int rowHeight = 40;
    static constexpr int startDistance = 10;

    /// A drag of the row at position 1 of four, gripped 5 points below its top.
    static RowDrag carried()
    {
        RowDrag drag(rowHeight);
        drag.press(1, {100, 45}, 5);
        drag.movePointer({100, 60}, startDistance);
        return drag;
    }
};

void RowDragTest::aShortMoveIsNoDrag()
{
    RowDrag drag(rowHeight);
    QVERIFY(drag.stage() == RowDrag::Stage::Idle);
    QVERIFY(!drag.movePointer({0, 500}, startDistance));
    drag.press(1, {100, 45}, 5);
    QVERIFY(!drag.movePointer({104, 50}, startDistance));
    QVERIFY(drag.stage() == RowDrag::Stage::Pressed);
    QVERIFY(!drag.drop());
    drag.press(1, {100, 45}, 5);
    QVERIFY(drag.movePointer({105, 50}, startDistance));
    QVERIFY(drag.isCarrying());
    QVERIFY(!drag.movePointer({105, 80}, startDistance));
}

void RowDragTest::aCarriedRowFollowsThePointer()
{
    RowDrag drag = carried();
    QCOMPARE(drag.gap(), 1);
    QCOMPARE(drag.carry(60, 4), 55.0);
    QCOMPARE(drag.gap(), 1);
    QCOMPARE(drag.carry(66, 4), 61.0);
    QCOMPARE(drag.gap(), 2);
    QCOMPARE(drag.carry(900, 4), 120.0);
    QCOMPARE(drag.carry(-900, 4), 0.0);
    QCOMPARE(drag.gap(), 0);
}

void RowDragTest::otherRowsMakeRoom()
{
    RowDrag drag = carried();
    drag.carry(125, 4);
    QCOMPARE(drag.slotOf(0), 0);
    QCOMPARE(drag.slotOf(2), 1);
    QCOMPARE(drag.slotOf(3), 2);
    drag.cancel();
    QCOMPARE(drag.slotOf(2), 2);
}

void RowDragTest::aDropReportsTheMove_data()
{
    QTest::addColumn<double>("pointerY");
    QTest::addColumn<qsizetype>("to");
    QTest::newRow("to the top") << 0.0 << qsizetype(0);
    QTest::newRow("one down") << 86.0 << qsizetype(3);
    QTest::newRow("to the end") << 200.0 << qsizetype(4);
    QTest::newRow("back to its slot") << 50.0 << qsizetype(-1);
}

void RowDragTest::aDropReportsTheMove()
{
    QFETCH(const double, pointerY);
    QFETCH(const qsizetype, to);
    RowDrag drag = carried();
    drag.carry(pointerY, 4);
    const std::optional<RowDrag::Move> move = drag.drop();
    QVERIFY(move == (to < 0 ? std::nullopt : std::optional(RowDrag::Move{1, to})));
    QVERIFY(drag.stage() == RowDrag::Stage::Idle);
}

void RowDragTest::aCancelledDragDropsNothing()
{
    RowDrag drag = carried();
    drag.carry(200, 4);
    QVERIFY(drag.cancel());
    QVERIFY(drag.stage() == RowDrag::Stage::Cancelled);
    QVERIFY(!drag.cancel());
    QVERIFY(!drag.movePointer({100, 300}, startDistance));
    QVERIFY(!drag.drop());
}

void RowDragTest::scrollStepsKeepTheFraction()
{
    RowDrag drag(rowHeight);
    QCOMPARE(drag.scrollStep(150, 0.01), 1);
    QCOMPARE(drag.scrollStep(150, 0.01), 2);
    QCOMPARE(drag.scrollStep(-150, 0.01), -1);
    drag.resetScroll();
    QCOMPARE(drag.scrollStep(50, 0.01), 0);
    QCOMPARE(drag.scrollStep(50, 0.01), 1);
}

QTEST_APPLESS_MAIN(RowDragTest)
#include "RowDragTest.moc"
