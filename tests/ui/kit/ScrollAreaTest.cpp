#include "ScrollArea.h"
#include "Button.h"
#include "Stack.h"
#include "TextField.h"

#include <QApplication>
#include <QScrollBar>
#include <QTest>
#include <QWheelEvent>

using namespace tintwick;

namespace {

QWheelEvent wheel(const QWidget& widget, const QPoint& eighths, Qt::KeyboardModifiers held = {})
{
    return {
        QPointF(5, 5), widget.mapToGlobal(QPointF(5, 5)), {}, eighths, Qt::NoButton, held, Qt::NoScrollPhase,
        false};
}

/// Sends a wheel event to a widget and returns whether the widget accepted it.
bool turn(QWidget& widget, const QPoint& eighths)
{
    QWheelEvent event = wheel(widget, eighths);
    event.ignore();
    QCoreApplication::sendEvent(&widget, &event);
    return event.isAccepted();
}

/// Sends a wheel event that propagates to the parent when the widget ignores it.
void turnByHand(QWidget& widget, const QPoint& eighths, Qt::KeyboardModifiers held)
{
    QWheelEvent event = wheel(widget, eighths, held);
    QSpontaneKeyEvent::setSpontaneous(&event);
    qApp->notify(&widget, &event);
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
    void aRowConsumesTheWheelUntilItsEnd();
    void aRowIsAsHighAsItsContent();
    void aRowOverhangsItsColumn();
    void aColumnScrollsVertically();
    void smallWheelStepsAddUp();
    void contentThatGrowsCanBeReached();
    void aPageConsumesTheWheelBeforeARowInIt_data();
    void aPageConsumesTheWheelBeforeARowInIt();
    void aFocusedWidgetScrollsIntoView_data();
    void aFocusedWidgetScrollsIntoView();
    void reactivatingAWindowKeepsItsScrollPosition();
};

void ScrollAreaTest::aRowConsumesTheWheelUntilItsEnd()
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

void ScrollAreaTest::aRowOverhangsItsColumn()
{
    auto* swatch = box(62, 80);
    auto* area = horizontalScroll(row(gap(12), padding(2, 4), swatch, box(400, 80)), 2);
    const std::unique_ptr<Stack> stack(column(padding(16), area));
    stack->resize(380, stack->sizeHint().height());
    stack->show();
    QCOMPARE(area->geometry(), QRect(14, 16, 352, 88));
    QCOMPARE(swatch->mapTo(stack.get(), QPoint()), QPoint(16, 20));
}

void ScrollAreaTest::aColumnScrollsVertically()
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
    QVERIFY(!turn(*area->viewport(), {-120, 0}));
    QCOMPARE(area->verticalScrollBar()->value(), 60);
}

void ScrollAreaTest::smallWheelStepsAddUp()
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

void ScrollAreaTest::aPageConsumesTheWheelBeforeARowInIt_data()
{
    QTest::addColumn<int>("pageHeight");
    QTest::addColumn<QPoint>("eighths");
    QTest::addColumn<Qt::KeyboardModifiers>("held");
    QTest::addColumn<int>("page");
    QTest::addColumn<int>("row");
    const Qt::KeyboardModifiers nothing;
    const Qt::KeyboardModifiers shift = Qt::ShiftModifier;
    QTest::newRow("down, over a long page") << 500 << QPoint(0, -60) << nothing << 30 << 0;
    QTest::newRow("down with Shift") << 500 << QPoint(0, -60) << shift << 0 << 30;
    QTest::newRow("to the side") << 500 << QPoint(-60, 0) << nothing << 0 << 30;
    QTest::newRow("to the side with Shift") << 500 << QPoint(-60, 0) << shift << 0 << 30;
    QTest::newRow("down, over a page with nothing to scroll") << 10 << QPoint(0, -60) << nothing << 0 << 30;
}

void ScrollAreaTest::aPageConsumesTheWheelBeforeARowInIt()
{
    QFETCH(const int, pageHeight);
    QFETCH(const QPoint, eighths);
    QFETCH(const Qt::KeyboardModifiers, held);
    auto* inner = horizontalScroll(row(box(900, 40)));
    const std::unique_ptr<ScrollArea> page(verticalScroll(column(inner, box(50, pageHeight))));
    page->resize(200, 200);
    page->show();
    turnByHand(*inner->viewport(), eighths, held);
    QTEST(page->verticalScrollBar()->value(), "page");
    QTEST(inner->horizontalScrollBar()->value(), "row");
}

void ScrollAreaTest::aFocusedWidgetScrollsIntoView_data()
{
    QTest::addColumn<QWidget*>("target");
    const auto nothing = [] {};
    QTest::newRow("a button") << static_cast<QWidget*>(borderedButton(QStringLiteral("Done"), nothing));
    QTest::newRow("a field") << static_cast<QWidget*>(new TextField(QStringLiteral("Name")));
}

// Moves the focus from a control outside the page to one that is scrolled out in both directions.
void ScrollAreaTest::aFocusedWidgetScrollsIntoView()
{
    QFETCH(QWidget*, target);
    target->setFixedWidth(80);
    auto* inner = horizontalScroll(row(box(900, 30), target, box(100, 30)));
    auto* page = verticalScroll(column(box(50, 500), inner, box(50, 100)));
    auto* outside = borderedButton(QStringLiteral("Back"), [] {});
    const std::unique_ptr<Stack> window(column(outside, page));
    window->resize(200, 200);
    window->show();
    window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(window.get()));
    outside->setFocus(Qt::TabFocusReason);
    QCOMPARE(page->verticalScrollBar()->value(), 0);
    QTest::keyClick(outside, Qt::Key_Tab);
    QVERIFY(target->hasFocus());
    const QRect place(target->mapTo(window.get(), QPoint(0, 0)), target->size());
    QVERIFY(page->geometry().contains(place));
}

void ScrollAreaTest::reactivatingAWindowKeepsItsScrollPosition()
{
    auto* button = borderedButton(QStringLiteral("Done"), [] {});
    const std::unique_ptr<ScrollArea> page(verticalScroll(column(button, box(50, 500))));
    page->resize(200, 200);
    page->show();
    page->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(page.get()));
    button->setFocus(Qt::TabFocusReason);
    page->verticalScrollBar()->setValue(200);
    QWidget other;
    other.show();
    other.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&other));
    page->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(page.get()));
    QVERIFY(button->hasFocus());
    QCOMPARE(page->verticalScrollBar()->value(), 200);
}

QTEST_MAIN(ScrollAreaTest)
#include "ScrollAreaTest.moc"
