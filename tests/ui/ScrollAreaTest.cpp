#include "ui/kit/ScrollArea.h"
#include "ui/kit/Stack.h"

#include <QScrollBar>
#include <QTest>
#include <QWheelEvent>

using namespace tintwick;

namespace {

/// Turns a wheel over a widget; returns whether the widget took it.
bool turn(QWidget& widget, const QPoint& eighths)
{
    QWheelEvent event(QPointF(5, 5), widget.mapToGlobal(QPointF(5, 5)), {}, eighths, Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    event.ignore();
    QCoreApplication::sendEvent(&widget, &event);
    return event.isAccepted();
}

QWidget* box(int width, int height)
{
    auto* widget = new QWidget;
    widget->setFixedSize(width, height);
    return widget;
}

} // namespace

class ScrollAreaTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aRowTakesTheWheelUntilItsEnd();
    void aRowIsAsHighAsItsContent();
    void aRowReachesBeyondItsColumn();
    void aColumnScrollsDownOnly();
    void fineTurnsAddUp();
    void contentThatGrowsCanBeReached();
};

void ScrollAreaTest::aRowTakesTheWheelUntilItsEnd()
{
    const std::unique_ptr<ScrollArea> area(horizontalScroll(row(gap(10), box(100, 40), box(100, 40))));
    area->resize(150, 40);
    area->show();
    QCOMPARE(area->horizontalScrollBar()->maximum(), 60);
    QVERIFY(!turn(*area->viewport(), {0, 120}));
    QVERIFY(turn(*area->viewport(), {0, -60}));
    QCOMPARE(area->horizontalScrollBar()->value(), 30);
    QVERIFY(turn(*area->viewport(), {-120, 0}));
    QCOMPARE(area->horizontalScrollBar()->value(), 60);
    QVERIFY(!turn(*area->viewport(), {0, -120}));
    QVERIFY(turn(*area->viewport(), {0, 120}));
    QCOMPARE(area->horizontalScrollBar()->value(), 0);
}

void ScrollAreaTest::aRowIsAsHighAsItsContent()
{
    const std::unique_ptr<ScrollArea> area(horizontalScroll(row(padding(2, 4), box(300, 40))));
    QCOMPARE(area->sizeHint().height(), 48);
    QCOMPARE(area->minimumSizeHint().height(), 48);
}

void ScrollAreaTest::aRowReachesBeyondItsColumn()
{
    auto* swatch = box(62, 80);
    auto* area = horizontalScroll(row(gap(12), padding(2, 4), swatch, box(400, 80)), 2);
    const std::unique_ptr<Stack> stack(column(padding(16), area));
    stack->resize(380, stack->sizeHint().height());
    stack->show();
    QCOMPARE(area->geometry(), QRect(14, 16, 352, 88));
    QCOMPARE(swatch->mapTo(stack.get(), QPoint()), QPoint(16, 20));
}

void ScrollAreaTest::aColumnScrollsDownOnly()
{
    const std::unique_ptr<ScrollArea> area(verticalScroll(column(gap(10), box(50, 300), box(50, 300))));
    area->resize(200, 200);
    area->show();
    QCOMPARE(area->widget()->width(), 200);
    QCOMPARE(area->verticalScrollBar()->maximum(), 410);
    QCOMPARE(area->horizontalScrollBar()->maximum(), 0);
    QVERIFY(!area->verticalScrollBar()->isVisible());
    QVERIFY(turn(*area->viewport(), {0, -120}));
    QCOMPARE(area->verticalScrollBar()->value(), 60);
    QVERIFY(turn(*area->viewport(), {-120, 0}));
    QCOMPARE(area->verticalScrollBar()->value(), 60);
}

void ScrollAreaTest::fineTurnsAddUp()
{
    const std::unique_ptr<ScrollArea> area(verticalScroll(column(box(50, 600))));
    area->resize(100, 100);
    area->show();
    for (int i = 0; i < 5; ++i) {
        QVERIFY(turn(*area->viewport(), {0, -1}));
    }
    QCOMPARE(area->verticalScrollBar()->value(), 2);
}

void ScrollAreaTest::contentThatGrowsCanBeReached()
{
    auto* content = column(box(50, 80));
    const std::unique_ptr<ScrollArea> area(verticalScroll(content));
    area->resize(100, 100);
    area->show();
    QCOMPARE(area->verticalScrollBar()->maximum(), 0);
    auto* more = box(50, 100);
    content->add(more);
    more->show();
    QTRY_COMPARE(area->verticalScrollBar()->maximum(), 80);
}

QTEST_MAIN(ScrollAreaTest)
#include "ScrollAreaTest.moc"
