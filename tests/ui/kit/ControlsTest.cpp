#include "Appearance.h"
#include "Button.h"
#include "ContextMenu.h"
#include "InOneLine.h"
#include "Label.h"
#include "Rule.h"
#include "Stack.h"
#include "SymbolView.h"
#include "TextField.h"
#include "ToolTip.h"

#include <QAccessible>
#include <QLabel>
#include <QMenu>
#include <QScreen>
#include <QTest>
#include <QTextDocument>

#include <functional>

using namespace tintwick;
using namespace Qt::StringLiterals;

namespace {

void nothing() {}

PlainButton* buttonWithToolTip()
{
    PlainButton* button = plainButton({}, nothing, label(QStringLiteral("Sea"), theme::font(12)));
    button->setToolTip(QStringLiteral("Settings"));
    button->show();
    return button;
}

/// Null when none is shown.
QLabel* toolTipOf(const QWidget& owner)
{
    return owner.findChild<QLabel*>(QStringLiteral("qtooltip_label"));
}

} // namespace

class ControlsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyKindHasAnAccessibleRole_data();
    void everyKindHasAnAccessibleRole();
    void aScreenReaderCanPress();
    void keysActivateAButton_data();
    void keysActivateAButton();
    void aHeldReturnActsOnce();
    void aDisabledButtonDoesNothing();
    void aClickOnTheContentPresses();
    void aClickKeepsTheFocus();
    void onlyKeyboardFocusShowsTheRing();
    void tabFollowsTheReadingOrder();
    void aFieldAcceptsText();
    void aMenuShowsItsEntries();
    void aMenuRunsTheChosenAction();
    void theWidthOfAMenuIsLimited();
    void aMenuLongerThanTheScreenStaysInOneColumn();
    void aLongToolTipWraps();
    void aToolTipIsPlainText();
    void aToolTipHasTheSchemeOfItsOwner();
    void aToolTipGoesAway_data();
    void aToolTipGoesAway();
    void controlCharactersBecomeSpaces_data();
    void controlCharactersBecomeSpaces();
    void aRuleIsAHairlineAtEveryScale_data();
    void aRuleIsAHairlineAtEveryScale();
};

void ControlsTest::everyKindHasAnAccessibleRole_data()
{
    QTest::addColumn<QWidget*>("widget");
    QTest::addColumn<QAccessible::Role>("role");
    QTest::addColumn<QString>("name");
    const auto row = [](const char* kind, QWidget* widget, QAccessible::Role role, const QString& name) {
        QTest::newRow(kind) << widget << role << name;
    };
    row("plain button", plainButton(u"Settings"_s, nothing, label(u"x"_s, theme::font(11))),
        QAccessible::PushButton, u"Settings"_s);
    row("bordered button", borderedButton(u"Cancel"_s, nothing), QAccessible::PushButton, u"Cancel"_s);
    row("prominent button", prominentButton(u"Salt & Pepper"_s, nothing), QAccessible::PushButton,
        u"Salt & Pepper"_s);
    row("text field", new TextField(u"Palette name"_s), QAccessible::EditableText, u"Palette name"_s);
    row("label", label(u"Collections"_s, theme::font(15)), QAccessible::StaticText, u"Collections"_s);
    row("rule", rule(), QAccessible::Separator, {});
    row("symbol", symbol(u"add"_s, 10, SymbolWeight::Regular, theme::accent), QAccessible::Graphic, {});
}

void ControlsTest::everyKindHasAnAccessibleRole()
{
    QFETCH(QWidget*, widget);
    const std::unique_ptr<QWidget> owned(widget);
    QAccessibleInterface* interface = QAccessible::queryAccessibleInterface(widget);
    QVERIFY(interface != nullptr);
    QTEST(interface->role(), "role");
    QTEST(interface->text(QAccessible::Name), "name");
}

void ControlsTest::aScreenReaderCanPress()
{
    int presses = 0;
    const std::unique_ptr<TextButton> button(borderedButton(u"Cancel"_s, [&] { ++presses; }));
    QAccessibleActionInterface* actions =
        QAccessible::queryAccessibleInterface(button.get())->actionInterface();
    QVERIFY(actions != nullptr);
    actions->doAction(QAccessibleActionInterface::pressAction());
    QTRY_COMPARE(presses, 1);
}

void ControlsTest::keysActivateAButton_data()
{
    QTest::addColumn<Qt::Key>("key");
    QTest::addColumn<int>("presses");
    QTest::newRow("Space") << Qt::Key_Space << 1;
    QTest::newRow("Return") << Qt::Key_Return << 1;
    QTest::newRow("Enter") << Qt::Key_Enter << 1;
    QTest::newRow("Escape") << Qt::Key_Escape << 0;
    QTest::newRow("Down") << Qt::Key_Down << 0;
}

void ControlsTest::keysActivateAButton()
{
    QFETCH(const Qt::Key, key);
    int presses = 0;
    const std::unique_ptr<TextButton> button(borderedButton(u"Cancel"_s, [&] { ++presses; }));
    button->show();
    QTest::keyClick(button.get(), key);
    QTEST(presses, "presses");
}

void ControlsTest::aHeldReturnActsOnce()
{
    int presses = 0;
    const std::unique_ptr<TextButton> button(borderedButton(u"Cancel"_s, [&] { ++presses; }));
    QTest::keyPress(button.get(), Qt::Key_Return);
    QKeyEvent repeated(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, u"\r"_s, true);
    QCoreApplication::sendEvent(button.get(), &repeated);
    QCOMPARE(presses, 1);
}

void ControlsTest::aDisabledButtonDoesNothing()
{
    int presses = 0;
    const std::unique_ptr<TextButton> button(prominentButton(u"Create"_s, [&] { ++presses; }));
    button->setEnabled(false);
    QTest::keyClick(button.get(), Qt::Key_Return);
    QTest::mouseClick(button.get(), Qt::LeftButton);
    button->click();
    QCOMPARE(presses, 0);
}

void ControlsTest::aClickOnTheContentPresses()
{
    int presses = 0;
    auto* text = label(u"See all"_s, theme::font(12));
    auto* button = plainButton(
        u"See all"_s, [&] { ++presses; }, row(padding(10), text));
    const std::unique_ptr<Stack> stack(column(button));
    stack->resize(stack->sizeHint());
    stack->show();
    QWidget* hit = stack->childAt(text->mapTo(stack.get(), text->rect().center()));
    QCOMPARE(hit, button);
    QTest::mouseClick(button, Qt::LeftButton);
    QCOMPARE(presses, 1);
}

void ControlsTest::aClickKeepsTheFocus()
{
    auto* field = new TextField(u"Palette name"_s);
    auto* button = borderedButton(u"Cancel"_s, nothing);
    const std::unique_ptr<Stack> stack(column(field, button));
    stack->show();
    stack->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(stack.get()));
    field->setFocus();
    QTest::mouseClick(button, Qt::LeftButton);
    QVERIFY(field->hasFocus());
}

void ControlsTest::onlyKeyboardFocusShowsTheRing()
{
    auto* first = borderedButton(u"Cancel"_s, nothing);
    auto* second = borderedButton(u"Create"_s, nothing);
    const std::unique_ptr<Stack> stack(row(first, second));
    stack->show();
    stack->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(stack.get()));
    second->setFocus(Qt::OtherFocusReason);
    QVERIFY(!second->showsFocusRing());
    first->setFocus(Qt::OtherFocusReason);
    QVERIFY(!first->showsFocusRing());
    QTest::keyClick(first, Qt::Key_Tab);
    QVERIFY(second->hasFocus());
    QVERIFY(second->showsFocusRing());
    QTest::keyClick(second, Qt::Key_Backtab);
    QVERIFY(first->showsFocusRing());
    QVERIFY(!second->showsFocusRing());
}

void ControlsTest::tabFollowsTheReadingOrder()
{
    QList<QWidget*> order;
    const auto button = [&](const QString& title) { return borderedButton(title, nothing); };
    TextButton* one = button(u"1"_s);
    TextButton* two = button(u"2"_s);
    TextButton* three = button(u"3"_s);
    TextButton* four = button(u"4"_s);
    const std::unique_ptr<Stack> stack(column(row(one, two), row(row(three)), four));
    stack->show();
    stack->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(stack.get()));
    one->setFocus(Qt::TabFocusReason);
    for (int i = 0; i < 4; ++i) {
        order.append(stack->focusWidget());
        QTest::keyClick(stack->focusWidget(), Qt::Key_Tab);
    }
    QCOMPARE(order, (QList<QWidget*>{one, two, three, four}));
    QVERIFY(one->hasFocus());
}

void ControlsTest::aFieldAcceptsText()
{
    TextField field(u"Palette name"_s, u"Sea"_s);
    QCOMPARE(field.text(), u"Sea"_s);
    QTest::keyClicks(&field, u" & sand"_s);
    QCOMPARE(field.text(), u"Sea & sand"_s);
    QCOMPARE(field.sizeHint().height(), 30);
}

void ControlsTest::aMenuShowsItsEntries()
{
    QMenu menu;
    fillMenu(menu, {menuAction(u"Open Palette"_s, u"open"_s, nothing), menuSeparator(),
                    submenu(u"Add to Palette…"_s, {menuAction(u"Salt & Pepper"_s, nothing)}),
                    menuDestructive(u"Delete"_s, nothing)});
    const QList<QAction*> actions = menu.actions();
    QCOMPARE(actions.size(), 4);
    QCOMPARE(actions.at(0)->text(), u"Open Palette"_s);
    QCOMPARE(actions.at(0)->icon().name(), u"open"_s);
    QVERIFY(actions.at(1)->isSeparator());
    QCOMPARE(actions.at(2)->menu()->title(), u"Add to Palette…"_s);
    QCOMPARE(actions.at(2)->menu()->actions().at(0)->text(), u"Salt && Pepper"_s);
    QCOMPARE(actions.at(3)->text(), u"Delete"_s);
}

void ControlsTest::aMenuRunsTheChosenAction()
{
    QString chosen;
    QWidget owner;
    owner.show();
    QPointer<QMenu> menu = popUpMenu(
        owner, owner.mapToGlobal(QPoint(5, 5)),
        {menuAction(u"HEX"_s, [&] { chosen = u"HEX"_s; }), menuAction(u"RGB"_s, [&] { chosen = u"RGB"_s; })});
    QVERIFY(menu->isVisible());
    QTest::keyClick(menu, Qt::Key_Down);
    QTest::keyClick(menu, Qt::Key_Down);
    QTest::keyClick(menu, Qt::Key_Return);
    QTRY_COMPARE(chosen, u"RGB"_s);
    QTRY_VERIFY(!menu);
}

void ControlsTest::theWidthOfAMenuIsLimited()
{
    QMenu menu;
    fillMenu(menu,
             {menuAction(QString(300, u'W'), [] {}), menuAction(QStringLiteral("Sea\tand\nsand"), [] {})});
    // A margin of 5, 10 at each side of the title, and 20 for the arrow of a submenu.
    QCOMPARE(menu.sizeHint().width(), 260 + 2 * 5 + 2 * 10 + 20);
    QCOMPARE(menu.actions()[1]->text(), QStringLiteral("Sea and sand"));
}

void ControlsTest::aMenuLongerThanTheScreenStaysInOneColumn()
{
    QList<MenuEntry> entries;
    for (int i = 0; i < 100; ++i) {
        entries.append(menuAction(QStringLiteral("Palette %1").arg(i), [] {}));
    }
    QMenu menu;
    fillMenu(menu, entries);
    menu.popup(QPoint(0, 0));
    QVERIFY(menu.height() <= menu.screen()->geometry().height());
    QCOMPARE(menu.actionGeometry(menu.actions().last()).left(),
             menu.actionGeometry(menu.actions().first()).left());
    menu.close();
}

void ControlsTest::aLongToolTipWraps()
{
    const QScopedPointer<PlainButton> owner(buttonWithToolTip());
    const auto sizeOfToolTip = [&owner](const QString& text) {
        owner->setToolTip(text);
        showToolTip(*owner, QPoint(10, 10));
        return toolTipOf(*owner)->size();
    };
    const QSize one = sizeOfToolTip(QStringLiteral("Settings"));
    QVERIFY(one.width() < 100);
    QVERIFY(one.height() < 30);
    const QSize words = sizeOfToolTip(QStringLiteral("by the sea ").repeated(30));
    QVERIFY(words.width() <= 320 + 2 * 8);
    QVERIFY(words.height() > 4 * (one.height() - 10));
    const QSize unbroken = sizeOfToolTip(QString(300, u'W'));
    QVERIFY(unbroken.width() <= 320 + 2 * 8);
    QVERIFY(unbroken.height() > 8 * (one.height() - 10));
}

void ControlsTest::aToolTipIsPlainText()
{
    const QScopedPointer<PlainButton> owner(buttonWithToolTip());
    owner->setToolTip(QStringLiteral("<b>Sea</b>\n&amp;  sand"));
    showToolTip(*owner, QPoint(10, 10));
    QTextDocument shown;
    shown.setHtml(toolTipOf(*owner)->text());
    QCOMPARE(shown.toPlainText(), QStringLiteral("<b>Sea</b> &amp;  sand"));
}

void ControlsTest::aToolTipHasTheSchemeOfItsOwner()
{
    const QScopedPointer<PlainButton> light(buttonWithToolTip());
    const Appearance lightAppearance(*light, Scheme::Light);
    showToolTip(*light, QPoint(10, 10));
    QCOMPARE(Appearance::of(toolTipOf(*light)), Scheme::Light);
    const QScopedPointer<PlainButton> dark(buttonWithToolTip());
    const Appearance darkAppearance(*dark, Scheme::Dark);
    showToolTip(*dark, QPoint(10, 10));
    QCOMPARE(Appearance::of(toolTipOf(*dark)), Scheme::Dark);
    QVERIFY(toolTipOf(*light) == nullptr);
}

void ControlsTest::aToolTipGoesAway_data()
{
    QTest::addColumn<std::function<void(PlainButton&)>>("act");
    const auto addRow = [](const char* name, const std::function<void(PlainButton&)>& act) {
        QTest::newRow(name) << act;
    };
    addRow("the pointer leaves", [](PlainButton& owner) {
        QEvent leave(QEvent::Leave);
        QCoreApplication::sendEvent(&owner, &leave);
    });
    addRow("a mouse button is pressed",
           [](PlainButton& owner) { QTest::mousePress(&owner, Qt::LeftButton); });
    addRow("a key is pressed", [](PlainButton& owner) { QTest::keyPress(&owner, Qt::Key_A); });
    addRow("the owner is hidden", [](PlainButton& owner) { owner.hide(); });
    addRow("the text is empty", [](PlainButton& owner) {
        owner.setToolTip({});
        showToolTip(owner, QPoint(10, 10));
    });
}

void ControlsTest::aToolTipGoesAway()
{
    QFETCH(const std::function<void(PlainButton&)>, act);
    const QScopedPointer<PlainButton> owner(buttonWithToolTip());
    // The activation of a window closes tool tips.
    QVERIFY(QTest::qWaitForWindowActive(owner.data()));
    showToolTip(*owner, QPoint(10, 10));
    QCoreApplication::processEvents();
    QVERIFY(toolTipOf(*owner)->isVisible());
    act(*owner);
    QTRY_VERIFY(toolTipOf(*owner) == nullptr);
}

void ControlsTest::controlCharactersBecomeSpaces_data()
{
    QTest::addColumn<QString>("words");
    QTest::addColumn<QString>("line");
    QTest::newRow("unchanged") << QStringLiteral("Sea  & sand") << QStringLiteral("Sea  & sand");
    QTest::newRow("a line break") << QStringLiteral("Sea\nsand") << QStringLiteral("Sea sand");
    QTest::newRow("a carriage return and a line feed")
        << QStringLiteral("Sea\r\nsand") << QStringLiteral("Sea  sand");
    QTest::newRow("a tab") << QStringLiteral("Sea\tsand") << QStringLiteral("Sea sand");
    QTest::newRow("the separators of lines and paragraphs")
        << QStringLiteral("Sea\u2028and\u2029sand") << QStringLiteral("Sea and sand");
    QTest::newRow("from right to left") << QStringLiteral("ים תיכון") << QStringLiteral("ים תיכון");
    QTest::newRow("an emoji of several characters")
        << QStringLiteral("🏖\uFE0F👩‍🎨") << QStringLiteral("🏖\uFE0F👩‍🎨");
}

void ControlsTest::controlCharactersBecomeSpaces()
{
    QFETCH(const QString, words);
    QFETCH(const QString, line);
    QCOMPARE(inOneLine(words), line);
}

void ControlsTest::aRuleIsAHairlineAtEveryScale_data()
{
    QTest::addColumn<double>("scale");
    QTest::addColumn<QRgb>("color");
    // Half a point of black with alpha 0.1 on F5F5F7, which covers the first row of pixels in part.
    QTest::newRow("1") << 1.0 << qRgb(0xE9, 0xE9, 0xEA);
    QTest::newRow("1.25") << 1.25 << qRgb(0xE6, 0xE6, 0xE7);
    QTest::newRow("1.5") << 1.5 << qRgb(0xE3, 0xE3, 0xE5);
    QTest::newRow("2") << 2.0 << qRgb(0xDC, 0xDC, 0xDE);
}

void ControlsTest::aRuleIsAHairlineAtEveryScale()
{
    QFETCH(const double, scale);
    QFETCH(const QRgb, color);
    // The header of 49 points ends inside a pixel at a fractional scale.
    constexpr int above = 49;
    auto* header = new QWidget;
    header->setFixedSize(40, above);
    Stack& stack = *column(header, rule(), spacer());
    const std::unique_ptr<Stack> owned(&stack);
    stack.resize(40, 60);
    stack.show();
    QImage image(stack.size() * scale, QImage::Format_RGB32);
    image.setDevicePixelRatio(scale);
    const QRgb ground = qRgb(0xF5, 0xF5, 0xF7);
    image.fill(ground);
    stack.render(&image, {}, {}, QWidget::DrawChildren);
    const int line = qRound(above * scale);
    for (int y = 0; y < image.height(); ++y) {
        const QRgb found = image.pixel(20, y);
        QVERIFY2(found == (y == line ? color : ground),
                 qPrintable(u"%1 in row %2"_s.arg(found & 0xFFFFFFU, 6, 16).arg(y)));
    }
}

QTEST_MAIN(ControlsTest)
#include "ControlsTest.moc"
