#include "KitStyle.h"
#include "PopUpPicker.h"
#include "SegmentedPicker.h"
#include "Stack.h"
#include "Ticker.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QMenu>
#include <QPointer>
#include <QTest>

using namespace tintwick;
using namespace Qt::StringLiterals;

namespace {

const QStringList sizes{u"S"_s, u"M"_s, u"L"_s};
const QStringList formats{u"HEX"_s, u"HEX+A"_s, u"RGB"_s, u"CSS & more"_s};

using Position = std::optional<qsizetype>;

/// A picker in an active window, and the selections that it reported.
struct Segments
{
    explicit Segments(Position selected)
        : picker(new SegmentedPicker(u"Scope Size"_s, sizes, selected))
        , window(column(fixedSize(200, 60), picker))
    {
        picker->onSelect([this](qsizetype position) { reported.append(position); });
        window->show();
        window->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(window.get()));
    }

    [[nodiscard]] QAbstractButton* segment(qsizetype position) const
    {
        return picker->findChildren<QAbstractButton*>().at(position);
    }
    [[nodiscard]] QList<bool> checked() const
    {
        QList<bool> states;
        for (auto* segment : picker->findChildren<QAbstractButton*>()) {
            states.append(QAccessible::queryAccessibleInterface(segment)->state().checked != 0);
        }
        return states;
    }
    /// The segments that have the colour of the thumb as their background.
    [[nodiscard]] QList<bool> thumbs() const
    {
        Ticker::shared().advance(60);
        const QImage picture = picker->grab().toImage();
        QList<bool> result;
        for (const auto* segment : picker->findChildren<QAbstractButton*>()) {
            const QPoint besideTitle = segment->geometry().topLeft() + QPoint(8, 8);
            result.append(picture.pixelColor(besideTitle) == theme::thumb.in(Scheme::Light));
        }
        return result;
    }

    SegmentedPicker* picker;
    std::unique_ptr<Stack> window;
    QList<qsizetype> reported;
};

/// The same for a PopUpPicker.
struct PopUp
{
    explicit PopUp(qsizetype selected)
        : picker(new PopUpPicker(u"Default Format"_s, formats, selected))
        , window(column(fixedSize(300, 300), padding(60), picker))
    {
        picker->onSelect([this](qsizetype position) { reported.append(position); });
        window->show();
        window->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(window.get()));
    }

    [[nodiscard]] QMenu* menu() const { return picker->menu(); }
    [[nodiscard]] QMenu* openMenu() const
    {
        QTest::mousePress(picker, Qt::LeftButton);
        return menu();
    }

    PopUpPicker* picker;
    std::unique_ptr<Stack> window;
    QList<qsizetype> reported;
};

} // namespace

class PickersTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void theSelectedSegmentIsDrawnAndReported_data();
    void theSelectedSegmentIsDrawnAndReported();
    void aClickSelectsAndReportsOnce();
    void keysMoveTheSelection_data();
    void keysMoveTheSelection();
    void tabReachesOnlyTheSelectedSegment();
    void withoutASelectionTabReachesTheFirst();
    void selectingFromCodeRunsNoAction();
    void theThumbSlides();
    void segmentsAreEqualAndFillTheWidth();
    void accessibilityReportsAGroupOfRadioButtons();
    void theMenuMarksTheChosenTitle();
    void theChosenLineCoversTheTitle();
    void keysOpenTheMenu_data();
    void keysOpenTheMenu();
    void choosingReportsAndShows();
    void choosingTheSelectedTitleRunsNoAction();
    void escapeChangesNothing();
    void accessibilityReportsAComboBoxWithAValue();
    void aScreenReaderOpensTheMenu();
};

void PickersTest::initTestCase()
{
    Ticker::shared().setMode(Ticker::Mode::ByHand);
}

void PickersTest::theSelectedSegmentIsDrawnAndReported_data()
{
    QTest::addColumn<Position>("selected");
    QTest::addColumn<QList<bool>>("states");
    QTest::newRow("first") << Position(0) << QList<bool>{true, false, false};
    QTest::newRow("last") << Position(2) << QList<bool>{false, false, true};
    QTest::newRow("none") << Position() << QList<bool>{false, false, false};
}

void PickersTest::theSelectedSegmentIsDrawnAndReported()
{
    QFETCH(const Position, selected);
    QFETCH(const QList<bool>, states);
    const Segments segments(selected);
    QCOMPARE(segments.checked(), states);
    QCOMPARE(segments.thumbs(), states);
    // Also from another selection.
    const Segments others(Position(1));
    others.picker->setSelected(selected);
    QCOMPARE(others.checked(), states);
    QCOMPARE(others.thumbs(), states);
}

void PickersTest::aClickSelectsAndReportsOnce()
{
    const Segments segments(Position(0));
    QTest::mouseClick(segments.segment(2), Qt::LeftButton);
    QTest::mouseClick(segments.segment(2), Qt::LeftButton);
    QCOMPARE(segments.reported, QList<qsizetype>{2});
    QCOMPARE(segments.checked(), (QList<bool>{false, false, true}));
    QCOMPARE(segments.thumbs(), (QList<bool>{false, false, true}));
}

void PickersTest::keysMoveTheSelection_data()
{
    QTest::addColumn<Position>("selected");
    QTest::addColumn<Qt::Key>("key");
    QTest::addColumn<QList<qsizetype>>("reported");
    using Positions = QList<qsizetype>;
    QTest::newRow("Right") << Position(0) << Qt::Key_Right << Positions{1};
    QTest::newRow("Left") << Position(2) << Qt::Key_Left << Positions{1};
    QTest::newRow("Home") << Position(2) << Qt::Key_Home << Positions{0};
    QTest::newRow("End") << Position(0) << Qt::Key_End << Positions{2};
    QTest::newRow("Right at the end") << Position(2) << Qt::Key_Right << Positions{};
    QTest::newRow("Left at the beginning") << Position(0) << Qt::Key_Left << Positions{};
    QTest::newRow("Space on the selected one") << Position(1) << Qt::Key_Space << Positions{};
    QTest::newRow("Down") << Position(1) << Qt::Key_Down << Positions{};
    QTest::newRow("Space, none selected") << Position() << Qt::Key_Space << Positions{0};
    QTest::newRow("Right, none selected") << Position() << Qt::Key_Right << Positions{1};
    QTest::newRow("Home, none selected") << Position() << Qt::Key_Home << Positions{0};
}

void PickersTest::keysMoveTheSelection()
{
    QFETCH(const Position, selected);
    QFETCH(const Qt::Key, key);
    const Segments segments(selected);
    segments.segment(selected.value_or(0))->setFocus(Qt::TabFocusReason);
    QTest::keyClick(segments.window->focusWidget(), key);
    QTEST(segments.reported, "reported");
    const Position now = segments.reported.isEmpty() ? selected : Position(segments.reported.first());
    QCOMPARE(segments.picker->selected(), now);
    QVERIFY(segments.segment(now.value_or(0))->hasFocus());
}

void PickersTest::tabReachesOnlyTheSelectedSegment()
{
    auto* one = new SegmentedPicker(u"Shape"_s, sizes, 1);
    auto* other = new SegmentedPicker(u"Scope Size"_s, sizes, 2);
    const std::unique_ptr<Stack> window(column(fixedSize(200, 100), one, other));
    window->show();
    window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(window.get()));
    QStringList order;
    one->findChildren<QAbstractButton*>().at(1)->setFocus(Qt::TabFocusReason);
    for (int i = 0; i < 3; ++i) {
        order.append(window->focusWidget()->accessibleName());
        QTest::keyClick(window->focusWidget(), Qt::Key_Tab);
    }
    QCOMPARE(order, (QStringList{u"M"_s, u"L"_s, u"M"_s}));
    // Tab reaches the new selection.
    QTest::keyClick(window->focusWidget(), Qt::Key_Home);
    QTest::keyClick(window->focusWidget(), Qt::Key_Tab);
    QTest::keyClick(window->focusWidget(), Qt::Key_Tab);
    QCOMPARE(window->focusWidget()->accessibleName(), u"S"_s);
}

void PickersTest::withoutASelectionTabReachesTheFirst()
{
    const Segments segments{Position()};
    QCOMPARE(segments.segment(0)->focusPolicy(), Qt::TabFocus);
    QCOMPARE(segments.segment(1)->focusPolicy(), Qt::NoFocus);
    QCOMPARE(segments.segment(2)->focusPolicy(), Qt::NoFocus);
}

void PickersTest::selectingFromCodeRunsNoAction()
{
    const Segments segments(Position(0));
    segments.picker->setSelected(1);
    QVERIFY(segments.reported.isEmpty());
}

void PickersTest::theThumbSlides()
{
    const Segments segments(Position(0));
    QCOMPARE(segments.thumbs(), (QList<bool>{true, false, false}));
    QTest::mouseClick(segments.segment(2), Qt::LeftButton);
    QVERIFY(Ticker::shared().hasMotion());
    const QImage atOnce = segments.picker->grab().toImage();
    const QPoint onTheFirst = segments.segment(0)->geometry().topLeft() + QPoint(8, 8);
    QCOMPARE(atOnce.pixelColor(onTheFirst), theme::thumb.in(Scheme::Light));
    Ticker::shared().advance(60);
    QVERIFY(!Ticker::shared().hasMotion());
    QCOMPARE(segments.thumbs(), (QList<bool>{false, false, true}));
}

void PickersTest::segmentsAreEqualAndFillTheWidth()
{
    const Segments segments(Position(0));
    QCOMPARE(segments.picker->width(), 200);
    int left = 2;
    for (qsizetype i = 0; i < 3; ++i) {
        const QRect place = segments.segment(i)->geometry();
        QVERIFY(std::abs(place.left() - left) <= 1);
        QVERIFY(std::abs(place.width() - 65) <= 1);
        left = place.right() + 1;
    }
    QCOMPARE(left, 198);
}

void PickersTest::accessibilityReportsAGroupOfRadioButtons()
{
    const Segments segments(Position(1));
    QAccessibleInterface* group = QAccessible::queryAccessibleInterface(segments.picker);
    QCOMPARE(group->role(), QAccessible::Grouping);
    QCOMPARE(group->text(QAccessible::Name), u"Scope Size"_s);
    QCOMPARE(group->childCount(), 3);
    QAccessibleInterface* large = group->child(2);
    QCOMPARE(large->role(), QAccessible::RadioButton);
    QCOMPARE(large->text(QAccessible::Name), u"L"_s);
    large->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    QTRY_COMPARE(segments.reported, QList<qsizetype>{2});
    QCOMPARE(segments.checked(), (QList<bool>{false, false, true}));
}

void PickersTest::theMenuMarksTheChosenTitle()
{
    const PopUp popUp(1);
    QTest::mouseClick(popUp.picker, Qt::LeftButton);
    QVERIFY(popUp.menu()->isVisible());
    QStringList titles;
    QList<bool> checked;
    for (const QAction* action : popUp.menu()->actions()) {
        titles.append(action->text());
        checked.append(action->isCheckable() && action->isChecked());
        QCOMPARE(action->icon().name(), action->isChecked() ? u"check"_s : QString());
    }
    QCOMPARE(titles, (QStringList{u"HEX"_s, u"HEX+A"_s, u"RGB"_s, u"CSS && more"_s}));
    QCOMPARE(checked, (QList<bool>{false, true, false, false}));
    QCOMPARE(popUp.menu()->activeAction(), popUp.menu()->actions().at(1));
}

void PickersTest::theChosenLineCoversTheTitle()
{
    const PopUp popUp(1);
    popUp.window->move(200, 200);
    QTest::mouseClick(popUp.picker, Qt::LeftButton);
    const QMenu* menu = popUp.menu();
    const QRect chosen = menu->actionGeometry(menu->actions().at(1));
    const QPoint middle = popUp.picker->mapToGlobal(popUp.picker->rect().center());
    QCOMPARE(menu->mapToGlobal(chosen.center()).y(), middle.y());
    // Titles begin 39 points from the edge of the menu and 12 from the edge of the control.
    QCOMPARE(menu->mapToGlobal(QPoint(39, 0)).x(), popUp.picker->mapToGlobal(QPoint(12, 0)).x());
    QVERIFY(menu->geometry().right() >= popUp.picker->mapToGlobal(popUp.picker->rect().topRight()).x());
}

void PickersTest::keysOpenTheMenu_data()
{
    QTest::addColumn<Qt::Key>("key");
    QTest::addColumn<bool>("opens");
    QTest::newRow("Space") << Qt::Key_Space << true;
    QTest::newRow("Return") << Qt::Key_Return << true;
    QTest::newRow("Down") << Qt::Key_Down << true;
    QTest::newRow("Up") << Qt::Key_Up << true;
    QTest::newRow("Right") << Qt::Key_Right << false;
    QTest::newRow("Escape") << Qt::Key_Escape << false;
}

void PickersTest::keysOpenTheMenu()
{
    QFETCH(const Qt::Key, key);
    const PopUp popUp(0);
    popUp.picker->setFocus(Qt::TabFocusReason);
    QTest::keyClick(popUp.picker, key);
    QTEST(popUp.menu() != nullptr, "opens");
}

void PickersTest::choosingReportsAndShows()
{
    const PopUp popUp(0);
    const QPointer<QMenu> menu = popUp.openMenu();
    QTest::keyClick(menu, Qt::Key_Down);
    QTest::keyClick(menu, Qt::Key_Down);
    QTest::keyClick(menu, Qt::Key_Return);
    QTRY_COMPARE(popUp.reported, QList<qsizetype>{2});
    QCOMPARE(popUp.picker->selectedTitle(), u"RGB"_s);
    QTRY_VERIFY(!menu);
}

void PickersTest::choosingTheSelectedTitleRunsNoAction()
{
    const PopUp popUp(2);
    const QPointer<QMenu> menu = popUp.openMenu();
    QTest::keyClick(menu, Qt::Key_Return);
    QTRY_VERIFY(!menu);
    QVERIFY(popUp.reported.isEmpty());
    QCOMPARE(popUp.picker->selected(), 2);
}

void PickersTest::escapeChangesNothing()
{
    const PopUp popUp(2);
    const QPointer<QMenu> menu = popUp.openMenu();
    QTest::keyClick(menu, Qt::Key_Up);
    QTest::keyClick(menu, Qt::Key_Escape);
    QTRY_VERIFY(!menu);
    QVERIFY(popUp.reported.isEmpty());
    QCOMPARE(popUp.picker->selected(), 2);
}

void PickersTest::accessibilityReportsAComboBoxWithAValue()
{
    const PopUp popUp(0);
    QAccessibleInterface* interface = QAccessible::queryAccessibleInterface(popUp.picker);
    QCOMPARE(interface->role(), QAccessible::ComboBox);
    QCOMPARE(interface->text(QAccessible::Name), u"Default Format"_s);
    QCOMPARE(interface->text(QAccessible::Value), u"HEX"_s);
    QVERIFY(interface->state().hasPopup);
    popUp.picker->setSelected(3);
    QCOMPARE(interface->text(QAccessible::Value), u"CSS & more"_s);
    QVERIFY(popUp.reported.isEmpty());
}

void PickersTest::aScreenReaderOpensTheMenu()
{
    const PopUp popUp(0);
    QAccessibleActionInterface* actions =
        QAccessible::queryAccessibleInterface(popUp.picker)->actionInterface();
    QVERIFY(actions->actionNames().contains(QAccessibleActionInterface::showMenuAction()));
    actions->doAction(QAccessibleActionInterface::showMenuAction());
    QVERIFY(popUp.menu()->isVisible());
}

QTEST_MAIN(PickersTest)
#include "PickersTest.moc"
