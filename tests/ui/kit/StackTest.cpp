#include "Stack.h"
#include "Appearance.h"
#include "Bound.h"
#include "Label.h"
#include "Overhang.h"

#include <QImage>
#include <QTest>

using namespace tintwick;
using namespace Qt::StringLiterals;

namespace {

class Box final : public QWidget
{
public:
    Box(int width, int height) { setFixedSize(width, height); }
};

/// A view of the given size with an overhang on all sides.
class Growing final : public QWidget, public Overhanging
{
public:
    Growing(int width, int height, int overhang)
        : m_overhang(overhang)
    {
        setFixedSize(width + 2 * overhang, height + 2 * overhang);
    }
    [[nodiscard]] QMargins overhang() const override
    {
        return {m_overhang, m_overhang, m_overhang, m_overhang};
    }

private:
    int m_overhang;
};

class State final : public QObject
{
    Q_OBJECT

public:
    void setOn(bool on)
    {
        m_on = on;
        Q_EMIT onChanged();
    }
    [[nodiscard]] bool isOn() const { return m_on; }

Q_SIGNALS:
    void onChanged();

private:
    bool m_on = false;
};

void layOut(QWidget& widget, const QSize& size)
{
    widget.resize(size);
    widget.show();
}

} // namespace

class StackTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aColumnStacksItsParts();
    void aSpacerTakesTheRemainingRoom();
    void aRowCentersAcross();
    void aLabelShrinksBeforeItsNeighbors();
    void aLabelIsElidedOnlyWithoutRoom();
    void hiddenPartsTakeNoRoom();
    void shownWhenNeverMakesAWindow();
    void shadowsAreDrawnOnTheBackgroundBelow();
    void overhangsTakeNoRoom();
    void anOverhangExtendsThroughStacksWithoutPadding();
    void aBackgroundEndsWhereTheOverhangBegins();
};

void StackTest::aColumnStacksItsParts()
{
    auto* first = new Box(50, 10);
    auto* second = new Box(30, 20);
    const std::unique_ptr<Stack> stack(column(gap(5), padding(8, 3), Across::Leading, first, second));
    layOut(*stack, {100, 41});
    QCOMPARE(first->geometry(), QRect(8, 3, 50, 10));
    QCOMPARE(second->geometry(), QRect(8, 18, 30, 20));
    QCOMPARE(stack->sizeHint(), QSize(66, 41));
}

void StackTest::aSpacerTakesTheRemainingRoom()
{
    auto* left = new Box(20, 10);
    auto* right = new Box(30, 10);
    const std::unique_ptr<Stack> stack(row(padding(14, 0), left, spacer(), right));
    layOut(*stack, {200, 10});
    QCOMPARE(left->x(), 14);
    QCOMPARE(right->geometry().right() + 1, 186);
}

void StackTest::aRowCentersAcross()
{
    auto* low = new Box(10, 10);
    auto* high = new Box(10, 30);
    const std::unique_ptr<Stack> stack(row(low, high));
    layOut(*stack, stack->sizeHint());
    QCOMPARE(low->y(), 10);
    QCOMPARE(high->y(), 0);
}

void StackTest::aLabelShrinksBeforeItsNeighbors()
{
    auto* name = label(u"A name that is far too long for its row, by any measure"_s, theme::font(14));
    auto* tile = new Box(44, 44);
    auto* end = new Box(10, 10);
    const std::unique_ptr<Stack> stack(
        row(gap(12), padding(12), tile, column(Across::Leading, name), spacer(), end));
    layOut(*stack, {200, 68});
    QCOMPARE(tile->geometry(), QRect(12, 12, 44, 44));
    QCOMPARE(end->geometry().right() + 1, 188);
    QCOMPARE(name->width(), 200 - 24 - 44 - 10 - 3 * 12);
}

void StackTest::aLabelIsElidedOnlyWithoutRoom()
{
    const std::unique_ptr<Label> whole(label(u"Tintwick"_s, theme::font(18, QFont::Bold)));
    QVERIFY(whole->minimumSizeHint().width() < whole->sizeHint().width());
    const auto inkOf = [&](int width) {
        whole->resize(width, whole->sizeHint().height());
        return whole->grab().toImage().copy(0, 0, 20, whole->height());
    };
    // The first letters are equal. They would differ in an elided text.
    QCOMPARE(inkOf(whole->sizeHint().width()), inkOf(500));
    QVERIFY(inkOf(whole->minimumSizeHint().width()) != inkOf(500));
}

void StackTest::hiddenPartsTakeNoRoom()
{
    State state;
    auto* sometimes = new Box(10, 10);
    auto* after = new Box(10, 10);
    const std::unique_ptr<Stack> stack(
        column(gap(20),
               shownWhen(bound([&] { return state.isOn(); }).changedBy(state, &State::onChanged), sometimes),
               after));
    layOut(*stack, {10, 40});
    QCOMPARE(stack->sizeHint().height(), 10);
    state.setOn(true);
    QVERIFY(sometimes->isVisible());
    QCOMPARE(stack->sizeHint().height(), 40);
    state.setOn(false);
    QCOMPARE(stack->sizeHint().height(), 10);
}

void StackTest::shownWhenNeverMakesAWindow()
{
    State state;
    const std::unique_ptr<Box> box(
        shownWhen(bound([&] { return state.isOn(); }).changedBy(state, &State::onChanged), new Box(10, 10)));
    state.setOn(true);
    QVERIFY(!box->isVisible());
    QWidget parent;
    box->setParent(&parent);
    state.setOn(true);
    QVERIFY(box->isVisibleTo(&parent));
    box->setParent(nullptr);
}

void StackTest::shadowsAreDrawnOnTheBackgroundBelow()
{
    auto* tile = row(fixedSize(40, 40), ground(theme::white, 0),
                     Shadow{.color = theme::black, .radius = 0, .offset = {0, 6}});
    const std::unique_ptr<Stack> stack(column(padding(20), ground(theme::bg), column(row(tile))));
    const Appearance appearance(*stack, Scheme::Light);
    layOut(*stack, stack->sizeHint());
    const QImage image = stack->grab().toImage();
    QCOMPARE(stack->size(), QSize(80, 80));
    QCOMPARE(image.pixelColor(40, 59), QColor(Qt::white));
    QCOMPARE(image.pixelColor(40, 62), QColor(Qt::black));
    QCOMPARE(image.pixelColor(40, 67).rgb(), theme::bg.in(Scheme::Light).rgb());
}

void StackTest::overhangsTakeNoRoom()
{
    auto* first = new Growing(62, 80, 2);
    auto* second = new Growing(62, 80, 2);
    const std::unique_ptr<Stack> stack(row(gap(12), padding(2, 4), first, second));
    layOut(*stack, stack->sizeHint());
    QCOMPARE(stack->size(), QSize(2 + 62 + 12 + 62 + 2, 88));
    QCOMPARE(stack->overhang(), QMargins());
    QCOMPARE(first->geometry(), QRect(0, 2, 66, 84));
    QCOMPARE(second->geometry(), QRect(74, 2, 66, 84));
}

void StackTest::anOverhangExtendsThroughStacksWithoutPadding()
{
    auto* before = new Box(300, 10);
    auto* cards = column(gap(10));
    const std::unique_ptr<Stack> stack(column(gap(20), padding(16), before, column(cards)));
    auto* card = new Growing(348, 64, 3);
    cards->add(card);
    QCOMPARE(cards->overhang(), QMargins(3, 3, 3, 3));
    QCOMPARE(stack->overhang(), QMargins());
    QCOMPARE(stack->sizeHint(), QSize(380, 16 + 10 + 20 + 64 + 16));
    layOut(*stack, stack->sizeHint());
    QCOMPARE(QRect(card->mapTo(stack.get(), QPoint()), card->size()), QRect(13, 43, 354, 70));
    QCOMPARE(before->y(), 16);
}

void StackTest::aBackgroundEndsWhereTheOverhangBegins()
{
    auto* tile = row(fixedSize(40, 40), ground(theme::black, 0), new Growing(40, 40, 5));
    QCOMPARE(tile->overhang(), QMargins(5, 5, 5, 5));
    const std::unique_ptr<Stack> stack(column(padding(10), ground(theme::white), tile));
    layOut(*stack, stack->sizeHint());
    QCOMPARE(stack->size(), QSize(60, 60));
    const QImage image = stack->grab().toImage();
    QCOMPARE(image.pixelColor(9, 30), QColor(Qt::white));
    QCOMPARE(image.pixelColor(10, 30), QColor(Qt::black));
    QCOMPARE(image.pixelColor(49, 30), QColor(Qt::black));
    QCOMPARE(image.pixelColor(50, 30), QColor(Qt::white));
}

QTEST_MAIN(StackTest)
#include "StackTest.moc"
