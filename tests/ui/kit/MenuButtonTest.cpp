#include "MenuButton.h"

#include "Label.h"
#include "Stack.h"

#include <QAccessible>
#include <QApplication>
#include <QMenu>
#include <QScreen>
#include <QTest>
#include <QWindow>

using namespace tintwick;
using namespace Qt::StringLiterals;

class MenuButtonTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void keysOpenTheMenu_data();
    void keysOpenTheMenu();
    void theMenuOpensBelowTheButton();
    void withoutRoomBelowTheMenuOpensAbove();
    void theButtonIsPressedUntilTheMenuCloses();
    void aSecondClickClosesTheMenu();
    void theChosenEntryRuns();
    void entriesAreComputedWhenTheMenuOpens();
    void accessibilityReportsAMenuButton();

private:
    /// Clicks through the window as a user does. An open menu receives clicks outside itself.
    void click(const QWidget& widget) const;

    std::unique_ptr<QWidget> m_window;
    MenuButton* m_button = nullptr;
    QStringList m_titles;
    QString m_chosen;
};

void MenuButtonTest::init()
{
    m_titles = {u"CSS Variables"_s, u"JSON"_s};
    m_chosen.clear();
    m_button = new MenuButton(
        u"Export"_s,
        [this] {
            QList<MenuEntry> entries;
            for (const QString& title : m_titles) {
                entries.append(menuAction(title, [this, title] { m_chosen = title; }));
            }
            return entries;
        },
        row(fixedSize(80, 30), centered(), label(u"Export"_s, theme::font(12))), 8);
    m_window.reset(row(padding(20), m_button));
    m_window->move(100, 100);
    m_window->show();
    m_window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
}

void MenuButtonTest::cleanup()
{
    m_window.reset();
}

void MenuButtonTest::click(const QWidget& widget) const
{
    const QPoint place = widget.mapTo(m_window.get(), widget.rect().center());
    QTest::mousePress(m_window->windowHandle(), Qt::LeftButton, Qt::NoModifier, place);
    QApplication::processEvents();
    QTest::mouseRelease(m_window->windowHandle(), Qt::LeftButton, Qt::NoModifier, place);
    QApplication::processEvents();
}

void MenuButtonTest::keysOpenTheMenu_data()
{
    QTest::addColumn<Qt::Key>("key");
    QTest::addColumn<Qt::KeyboardModifiers>("modifiers");
    QTest::addColumn<bool>("opens");
    const auto row = [](const char* name, Qt::Key key, bool opens,
                        Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::newRow(name) << key << modifiers << opens;
    };
    row("Space", Qt::Key_Space, true);
    row("Return", Qt::Key_Return, true);
    row("Enter", Qt::Key_Enter, true, Qt::KeypadModifier);
    row("Down", Qt::Key_Down, true);
    row("Down of the keypad", Qt::Key_Down, true, Qt::KeypadModifier);
    row("Alt+Down", Qt::Key_Down, false, Qt::AltModifier);
    row("Up", Qt::Key_Up, false);
    row("Escape", Qt::Key_Escape, false);
    row("a letter", Qt::Key_E, false);
}

void MenuButtonTest::keysOpenTheMenu()
{
    QFETCH(const Qt::Key, key);
    QFETCH(const Qt::KeyboardModifiers, modifiers);
    QFETCH(const bool, opens);
    m_button->setFocus(Qt::TabFocusReason);
    QTest::keyClick(m_button, key, modifiers);
    QCOMPARE(m_button->menu() != nullptr, opens);
    if (opens) {
        QCOMPARE(m_button->menu()->activeAction()->text(), u"CSS Variables"_s);
    }
}

void MenuButtonTest::theMenuOpensBelowTheButton()
{
    click(*m_button);
    QVERIFY(m_button->menu());
    QCOMPARE(m_button->menu()->pos(), m_button->mapToGlobal(QPoint(0, 30 + 4)));
    QCOMPARE(m_button->menu()->activeAction(), nullptr);
}

void MenuButtonTest::withoutRoomBelowTheMenuOpensAbove()
{
    m_window->move(100, m_window->screen()->availableGeometry().bottom() - 60);
    click(*m_button);
    QVERIFY(m_button->menu());
    QCOMPARE(m_button->menu()->geometry().bottom() + 1, m_button->mapToGlobal(QPoint(0, -4)).y());
    QCOMPARE(m_button->menu()->x(), m_button->mapToGlobal(QPoint(0, 0)).x());
}

void MenuButtonTest::theButtonIsPressedUntilTheMenuCloses()
{
    const QImage atRest = m_button->grab().toImage();
    QTest::keyClick(m_button, Qt::Key_Space);
    const QImage open = m_button->grab().toImage();
    QVERIFY(open.pixel(5, 5) != atRest.pixel(5, 5));
    QTest::keyClick(m_button->menu(), Qt::Key_Escape);
    QVERIFY(!m_button->menu());
    QCOMPARE(m_button->grab().toImage().pixel(5, 5), atRest.pixel(5, 5));
}

void MenuButtonTest::aSecondClickClosesTheMenu()
{
    click(*m_button);
    QVERIFY(m_button->menu());
    click(*m_button);
    QVERIFY(!m_button->menu());
    QVERIFY(!QApplication::activePopupWidget());
    click(*m_button);
    QVERIFY(m_button->menu());
}

void MenuButtonTest::theChosenEntryRuns()
{
    QTest::keyClick(m_button, Qt::Key_Down);
    QTest::keyClick(m_button->menu(), Qt::Key_Down);
    QTest::keyClick(m_button->menu(), Qt::Key_Return);
    QTRY_COMPARE(m_chosen, u"JSON"_s);
    QVERIFY(!m_button->menu());
}

void MenuButtonTest::entriesAreComputedWhenTheMenuOpens()
{
    QTest::keyClick(m_button, Qt::Key_Down);
    QTest::keyClick(m_button->menu(), Qt::Key_Escape);
    m_titles = {u"PNG Swatch"_s};
    QTest::keyClick(m_button, Qt::Key_Down);
    QCOMPARE(m_button->menu()->actions().size(), 1);
    QCOMPARE(m_button->menu()->actions().first()->text(), u"PNG Swatch"_s);
}

void MenuButtonTest::accessibilityReportsAMenuButton()
{
    QAccessibleInterface* interface = QAccessible::queryAccessibleInterface(m_button);
    QCOMPARE(interface->role(), QAccessible::ButtonMenu);
    QCOMPARE(interface->text(QAccessible::Name), u"Export"_s);
    QVERIFY(interface->state().hasPopup);
    QVERIFY(interface->state().collapsed);
    interface->actionInterface()->doAction(QAccessibleActionInterface::showMenuAction());
    QVERIFY(m_button->menu());
    QVERIFY(interface->state().expanded);
}

QTEST_MAIN(MenuButtonTest)
#include "MenuButtonTest.moc"
