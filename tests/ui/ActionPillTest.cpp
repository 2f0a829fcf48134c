#include "ActionPill.h"

#include "Button.h"
#include "CollectionDetailView.h"
#include "ColorDetailRow.h"
#include "Overlay.h"
#include "ScrollArea.h"
#include "ui/OwnHomeMain.h"
#include "ui/PanelFixture.h"

#include <QAccessible>
#include <QEnterEvent>
#include <QLineEdit>

using namespace tintwick;
using namespace tintwick::test;

namespace {

using namespace Qt::StringLiterals;

class UndoFixture : public PanelFixture
{
public:
    UndoFixture()
    {
        capture(0x00FF00);
        capture(0xFF0000);
        settle();
    }

    [[nodiscard]] ActionPill& pill() const { return *view->findChild<ActionPill*>(); }
    [[nodiscard]] QAbstractButton* undo() const { return button(*view, u"Undo"_s); }
    [[nodiscard]] QTimer& timer() const { return *pill().findChild<QTimer*>(); }
    [[nodiscard]] QString said() const { return visibleTexts(pill()).join(u' '); }

    CapturedColor deleteFirst()
    {
        const CapturedColor color = state.history().first();
        state.deleteColor(color.id);
        settle();
        return color;
    }

    void type(int key, Qt::KeyboardModifiers modifiers) const
    {
        QWidget* focused = view->focusWidget();
        QTest::keyClick(focused != nullptr ? focused : view.get(), Qt::Key(key), modifiers);
        settle();
    }
};

} // namespace

class ActionPillTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aRemovalIsOfferedForUndo();
    void thePillEndsAfterSixSeconds();
    void pointerAndFocusKeepThePill();
    void thePillCoversNothing();
    void aLongNameLeavesRoomForTheButton();
    void whatIsUndoneIsShownWhole();
    void keysGoBackAndForth_data();
    void keysGoBackAndForth();
    void textFieldsKeepTheirKeys();
    void keysChangeNothingBelowAnOverlay();
    void theButtonIsReachedByTabAndLeavesTheFocusInThePanel();
    void screenReadersGetTheChange();
    void reducedMotionShowsThePillAtOnce();
};

void ActionPillTest::aRemovalIsOfferedForUndo()
{
    UndoFixture panel;
    QVERIFY(!panel.pill().isVisible());
    const CapturedColor red = panel.deleteFirst();
    QVERIFY(panel.pill().isVisible());
    QCOMPARE(panel.said(), u"Removed Red – Undo"_s);

    QTest::mouseClick(panel.undo(), Qt::LeftButton);
    panel.settle();
    QCOMPARE(panel.state.history().first(), red);
    QCOMPARE(panel.said(), u"Undone: Removed Red"_s);
    QVERIFY(panel.undo() == nullptr);
}

void ActionPillTest::thePillEndsAfterSixSeconds()
{
    UndoFixture panel;
    panel.deleteFirst();
    QVERIFY(panel.timer().isActive());
    QCOMPARE(panel.timer().interval(), 6000);
    panel.letOfferEnd();
    QVERIFY(!panel.pill().isVisible());
    panel.type(Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(panel.state.history().size(), 2);
}

void ActionPillTest::pointerAndFocusKeepThePill()
{
    UndoFixture panel;
    panel.deleteFirst();
    panel.undo()->setFocus(Qt::TabFocusReason);
    panel.settle();
    QVERIFY(!panel.timer().isActive());
    panel.view->setFocus();
    panel.settle();
    QVERIFY(panel.timer().isActive());

    QTest::mouseMove(panel.view->windowHandle(), panel.pill().mapTo(panel.view.get(), QPoint(190, 20)));
    QVERIFY(!panel.timer().isActive());
    panel.state.deleteColor(panel.state.history().first().id);
    QVERIFY(!panel.timer().isActive());
    QTest::mouseMove(panel.view->windowHandle(), QPoint(190, 80));
    QVERIFY(panel.timer().isActive());
    QCOMPARE(panel.timer().interval(), 6000);
}

void ActionPillTest::thePillCoversNothing()
{
    UndoFixture panel;
    panel.deleteFirst();
    const QRect pill = placeIn(*panel.view, panel.pill());
    QCOMPARE(pill, QRect(0, 530, 380, 50));
    QCOMPARE(placeIn(*panel.view, *panel.dashboard().findChild<ScrollArea*>()).bottom() + 1, 530);
    panel.letOfferEnd();
    QCOMPARE(placeIn(*panel.view, *panel.dashboard().findChild<ScrollArea*>()).bottom() + 1, 580);
}

void ActionPillTest::aLongNameLeavesRoomForTheButton()
{
    UndoFixture panel;
    const int wanted = [&] {
        panel.deleteFirst();
        return panel.undo()->width();
    }();
    panel.state.deleteCollection(
        panel.state.createCollection(u"Everything that was ever on the landing page of the shop"_s).id);
    panel.settle();
    QCOMPARE(panel.undo()->width(), wanted);
    QVERIFY(panel.undo()->mapTo(panel.view.get(), QPoint(wanted, 0)).x() < 364);
    const auto* text = panel.pill().findChild<Label*>();
    QCOMPARE(text->toolTip(), u"Removed Everything that was ever on the landing page of the shop"_s);
}

void ActionPillTest::whatIsUndoneIsShownWhole()
{
    UndoFixture panel;
    panel.deleteFirst();
    panel.state.undo();
    panel.settle();
    const auto* text = panel.pill().findChild<Label*>();
    QCOMPARE(text->text(), u"Undone: Removed Red"_s);
    QCOMPARE(text->toolTip(), QString());
    QCOMPARE(text->width(), text->sizeHint().width());
}

void ActionPillTest::keysGoBackAndForth_data()
{
    QTest::addColumn<QString>("screen");
    for (const QString& screen : {u"dashboard"_s, u"history"_s, u"palette"_s, u"settings"_s}) {
        QTest::newRow(qPrintable(screen)) << screen;
    }
}

void ActionPillTest::keysGoBackAndForth()
{
    QFETCH(const QString, screen);
    UndoFixture panel;
    const QUuid palette = panel.state.createCollection(u"Brand"_s).id;
    if (screen == u"history") {
        panel.view->setSelectedCollectionId(PanelView::historySelectionId);
    } else if (screen == u"palette") {
        panel.view->setSelectedCollectionId(palette);
    } else if (screen == u"settings") {
        panel.view->setShowingSettings(true);
    }
    panel.settle();
    panel.deleteFirst();
    panel.deleteFirst();
    panel.type(Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(panel.state.history().size(), 1);
    panel.type(Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(panel.state.history().size(), 2);
    QCOMPARE(panel.said(), u"Undone: Removed Red"_s);
    panel.type(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    QCOMPARE(panel.state.history().size(), 1);
    QCOMPARE(panel.said(), u"Removed Red – Undo"_s);
}

void ActionPillTest::textFieldsKeepTheirKeys()
{
    UndoFixture panel;
    panel.deleteFirst();
    panel.dashboard().openNewPaletteOverlay();
    auto* field = panel.view->findChild<QLineEdit*>();
    QTest::keyClicks(field, u"Sky"_s);
    QVERIFY(field->hasFocus());
    panel.type(Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(field->text(), QString());
    QCOMPARE(panel.state.history().size(), 1);
    panel.type(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    QCOMPARE(field->text(), u"Sky"_s);
}

void ActionPillTest::keysChangeNothingBelowAnOverlay()
{
    UndoFixture panel;
    panel.deleteFirst();
    panel.dashboard().openNewPaletteOverlay();
    button(*panel.view, u"Cancel"_s)->setFocus();
    panel.type(Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(panel.state.history().size(), 1);
}

void ActionPillTest::theButtonIsReachedByTabAndLeavesTheFocusInThePanel()
{
    UndoFixture panel;
    panel.state.createCollection(u"Brand"_s);
    panel.deleteFirst();
    QCOMPARE(reachedByTab(*panel.view).last(), panel.undo());
    panel.undo()->setFocus(Qt::TabFocusReason);
    QTest::keyClick(panel.undo(), Qt::Key_Return);
    panel.settle();
    QCOMPARE(panel.state.history().size(), 2);
    QCOMPARE(panel.view->focusWidget(), panel.view.get());
    QVERIFY(panel.timer().isActive());
}

void ActionPillTest::screenReadersGetTheChange()
{
    UndoFixture panel;
    panel.deleteFirst();
    const QAccessibleInterface* pill = QAccessible::queryAccessibleInterface(&panel.pill());
    QCOMPARE(pill->role(), QAccessible::Notification);
    QCOMPARE(pill->text(QAccessible::Name), u"Removed Red"_s);
    const QAccessibleInterface* undo = QAccessible::queryAccessibleInterface(panel.undo());
    QCOMPARE(undo->role(), QAccessible::Button);
    QCOMPARE(undo->text(QAccessible::Name), u"Undo"_s);
    QCOMPARE(undo->text(QAccessible::Description), u"Removed Red"_s);
}

void ActionPillTest::reducedMotionShowsThePillAtOnce()
{
    UndoFixture panel;
    Ticker::shared().setMotionReduced(true);
    panel.state.deleteColor(panel.state.history().first().id);
    const int height = panel.pill().height();
    Ticker::shared().setMotionReduced(false);
    QCOMPARE(height, 50);
}

int main(int argc, char** argv)
{
    return runWithOwnHome<ActionPillTest>(argc, argv);
}

#include "ActionPillTest.moc"
