#include "ScrollArea.h"
#include "Appearance.h"
#include "Button.h"
#include "Stack.h"
#include "TextField.h"

#include <QApplication>
#include <QPointingDevice>
#include <QScrollBar>
#include <QTest>
#include <QWheelEvent>

using namespace tintwick;

namespace {

QWheelEvent wheel(const QWidget& widget, const QPoint& eighths, Qt::KeyboardModifiers held = {},
                  const QPointingDevice& device = *QPointingDevice::primaryPointingDevice())
{
    return {QPointF(5, 5),
            widget.mapToGlobal(QPointF(5, 5)),
            {},
            eighths,
            Qt::NoButton,
            held,
            Qt::NoScrollPhase,
            false,
            Qt::MouseEventNotSynthesized,
            &device};
}

/// Sends a wheel event to a widget and returns whether the widget accepted it.
bool turn(QWidget& widget, const QPoint& eighths, quint64 milliseconds = 0)
{
    QWheelEvent event = wheel(widget, eighths);
    event.setTimestamp(milliseconds);
    event.ignore();
    QCoreApplication::sendEvent(&widget, &event);
    return event.isAccepted();
}

/// Sends a wheel event that propagates to the parent when the widget ignores it.
void turnByHand(QWidget& widget, QWheelEvent event, quint64 milliseconds = 0)
{
    event.setTimestamp(milliseconds);
    QSpontaneKeyEvent::setSpontaneous(&event);
    qApp->notify(&widget, &event);
}

void drag(QWidget& widget, QEvent::Type type, const QPoint& place)
{
    QMouseEvent event(type, place, widget.mapToGlobal(place), Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&widget, &event);
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
    void aWheelOverARowInAPage_data();
    void aWheelOverARowInAPage();
    void aTouchpadScrollsThePageBelowARow();
    void aTurnEndsWhereItBegan();
    void aDragBetweenTheChildrenScrollsARow();
    void aRowFadesOutWhereItGoesOn();
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
    // The end of the turn that has scrolled the row, then a new turn.
    QVERIFY(turn(*area->viewport(), {0, -120}, 400));
    QVERIFY(!turn(*area->viewport(), {0, -120}, 801));
    QVERIFY(turn(*area->viewport(), {0, 120}, 802));
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

void ScrollAreaTest::aWheelOverARowInAPage_data()
{
    QTest::addColumn<int>("pageHeight");
    QTest::addColumn<QPoint>("eighths");
    QTest::addColumn<Qt::KeyboardModifiers>("held");
    const Qt::KeyboardModifiers nothing;
    const Qt::KeyboardModifiers shift = Qt::ShiftModifier;
    QTest::newRow("down, over a long page") << 500 << QPoint(0, -60) << nothing;
    QTest::newRow("down with Shift") << 500 << QPoint(0, -60) << shift;
    QTest::newRow("to the side") << 500 << QPoint(-60, 0) << nothing;
    QTest::newRow("to the side with Shift") << 500 << QPoint(-60, 0) << shift;
    QTest::newRow("down, over a page with nothing to scroll") << 10 << QPoint(0, -60) << nothing;
}

void ScrollAreaTest::aWheelOverARowInAPage()
{
    QFETCH(const int, pageHeight);
    QFETCH(const QPoint, eighths);
    QFETCH(const Qt::KeyboardModifiers, held);
    auto* inner = horizontalScroll(row(box(900, 40)));
    const std::unique_ptr<ScrollArea> page(verticalScroll(column(inner, box(50, pageHeight))));
    page->resize(200, 200);
    page->show();
    turnByHand(*inner->viewport(), wheel(*inner, eighths, held));
    QCOMPARE(page->verticalScrollBar()->value(), 0);
    QCOMPARE(inner->horizontalScrollBar()->value(), 30);
}

void ScrollAreaTest::aTouchpadScrollsThePageBelowARow()
{
    const QPointingDevice touchpad(QStringLiteral("pad"), 1, QInputDevice::DeviceType::TouchPad,
                                   QPointingDevice::PointerType::Finger, QInputDevice::Capability::Scroll, 2,
                                   0);
    auto* inner = horizontalScroll(row(box(900, 40)));
    const std::unique_ptr<ScrollArea> page(verticalScroll(column(inner, box(50, 500))));
    page->resize(200, 200);
    page->show();
    turnByHand(*inner->viewport(), wheel(*inner, {0, -60}, {}, touchpad));
    QCOMPARE(page->verticalScrollBar()->value(), 30);
    QCOMPARE(inner->horizontalScrollBar()->value(), 0);
    turnByHand(*inner->viewport(), wheel(*inner, {-60, 0}, {}, touchpad), 1000);
    QCOMPARE(page->verticalScrollBar()->value(), 30);
    QCOMPARE(inner->horizontalScrollBar()->value(), 30);
}

// A page that is scrolled moves a row below the pointer, and a row that is at its end lies on a page.
void ScrollAreaTest::aTurnEndsWhereItBegan()
{
    auto* inner = horizontalScroll(row(box(240, 40)));
    const std::unique_ptr<ScrollArea> page(verticalScroll(column(inner, box(50, 500))));
    page->resize(200, 200);
    page->show();
    const auto turnOver = [](ScrollArea& area, quint64 milliseconds) {
        turnByHand(*area.viewport(), wheel(area, {0, -60}), milliseconds);
    };
    const auto values = [&] {
        return QPoint(inner->horizontalScrollBar()->value(), page->verticalScrollBar()->value());
    };
    turnOver(*page, 1000);
    turnOver(*inner, 1300);
    turnOver(*inner, 1600);
    QCOMPARE(values(), QPoint(0, 90));
    turnOver(*inner, 2001);
    turnOver(*inner, 2200);
    QCOMPARE(values(), QPoint(40, 90));
    turnOver(*inner, 2400);
    turnOver(*inner, 2800);
    QCOMPARE(values(), QPoint(40, 90));
    turnOver(*inner, 3201);
    QCOMPARE(values(), QPoint(40, 120));
}

void ScrollAreaTest::aDragBetweenTheChildrenScrollsARow()
{
    const std::unique_ptr<ScrollArea> area(horizontalScroll(row(gap(10), box(100, 40), box(300, 40))));
    area->resize(150, 40);
    area->show();
    QWidget& content = *area->widget();
    drag(content, QEvent::MouseButtonPress, {105, 20});
    drag(content, QEvent::MouseMove, {65, 20});
    QCOMPARE(area->horizontalScrollBar()->value(), 40);
    // The content has moved below the pointer.
    drag(content, QEvent::MouseMove, {125, 20});
    QCOMPARE(area->horizontalScrollBar()->value(), 20);
    drag(content, QEvent::MouseButtonRelease, {105, 20});
}

void ScrollAreaTest::aRowFadesOutWhereItGoesOn()
{
    auto* content = row(gap(0), row(fixedSize(400, 40), ground(theme::black)));
    const std::unique_ptr<ScrollArea> area(horizontalScroll(content));
    const Appearance appearance(*area, Scheme::Light);
    area->resize(200, 40);
    area->show();
    const auto greys = [&area](std::initializer_list<int> places) {
        const QImage picture = area->grab().toImage();
        QList<int> result;
        for (const int x : places) {
            result.append(qGray(picture.pixel(x, 20)));
        }
        return result;
    };
    const auto isSmooth = [&](int from, int to) {
        int before = greys({from}).first();
        for (int x = from; x != to; x += from < to ? 1 : -1) {
            const int now = greys({x}).first();
            if (now < before || now - before > 20) {
                return false;
            }
            before = now;
        }
        return before > 235;
    };
    QCOMPARE(area->horizontalScrollBar()->maximum(), 200);
    QCOMPARE(greys({0, 20, 100}), (QList<int>{0, 0, 0}));
    QVERIFY(isSmooth(150, 200));

    area->horizontalScrollBar()->setValue(100);
    QVERIFY(isSmooth(50, -1));
    QVERIFY(isSmooth(150, 200));

    area->horizontalScrollBar()->setValue(200);
    QVERIFY(isSmooth(50, -1));
    QCOMPARE(greys({100, 180, 199}), (QList<int>{0, 0, 0}));
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
