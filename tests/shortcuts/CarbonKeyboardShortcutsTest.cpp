#include "CarbonKeyboardShortcuts.h"
#include "support/OutputOf.h"
#include "support/ScriptedHotKeyRegistrar.h"
#include "support/ScriptedKeyboardLayout.h"

#include <QTest>

namespace tintwick::test {

using namespace KeyboardShortcuts;

namespace {

constexpr Shortcut optionShiftC{8, 0xA00};
constexpr Shortcut commandC{8, 0x100};

struct Desktop
{
    ScriptedHotKeyRegistrar registrar;
    ScriptedKeyboardLayout layout;
    CarbonKeyboardShortcuts hotKeys{registrar, layout};
    /// What was called: "<label> down" or "<label> up".
    QStringList calls;

    Desktop() { layout.characters[8] = QStringLiteral("c"); }

    void add(const Shortcut& shortcut, const QString& label)
    {
        hotKeys.registerShortcut(
            shortcut, [this, label](const Shortcut&) { calls << label + QStringLiteral(" down"); },
            [this, label](const Shortcut&) { calls << label + QStringLiteral(" up"); });
    }
};

} // namespace

class CarbonKeyboardShortcutsTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void pressAndReleaseReachTheirActions()
    {
        Desktop desktop;
        desktop.add(optionShiftC, QStringLiteral("a"));
        desktop.add(commandC, QStringLiteral("b"));
        desktop.registrar.pressAndRelease(8, 0xA00);
        QCOMPARE(desktop.calls, (QStringList{QStringLiteral("a down"), QStringLiteral("a up")}));
        desktop.registrar.pressAndRelease(8, 0x100);
        QCOMPARE(desktop.calls, (QStringList{QStringLiteral("a down"), QStringLiteral("a up"),
                                             QStringLiteral("b down"), QStringLiteral("b up")}));
    }

    void theSameShortcutTwiceIsTwoRegistrationsThatLeaveTogether()
    {
        Desktop desktop;
        desktop.add(optionShiftC, QStringLiteral("a"));
        desktop.add(optionShiftC, QStringLiteral("b"));
        QCOMPARE(desktop.registrar.journal, (QStringList{QStringLiteral("register 8+2560 as 1"),
                                                         QStringLiteral("register 8+2560 as 2")}));
        desktop.registrar.pressAndRelease(8, 0xA00);
        QCOMPARE(desktop.calls, (QStringList{QStringLiteral("a down"), QStringLiteral("b down"),
                                             QStringLiteral("a up"), QStringLiteral("b up")}));

        desktop.registrar.journal.clear();
        desktop.hotKeys.unregisterShortcut(optionShiftC);
        QCOMPARE(desktop.registrar.journal,
                 (QStringList{QStringLiteral("unregister 1"), QStringLiteral("unregister 2")}));
    }

    void aRefusedShortcutPrintsItsLineAndUsesUpAnId()
    {
        Desktop desktop;
        desktop.registrar.refused[{8, 0xA00}] = -9878;
        const auto refusal = outputOf([&] { desktop.add(optionShiftC, QStringLiteral("a")); });
        QCOMPARE(refusal, QByteArray("Error registering hotkey ⌥⇧C: -9878\n"));
        QVERIFY(!desktop.registrar.hasHotKeyHandler());

        const auto success = outputOf([&] { desktop.add(commandC, QStringLiteral("b")); });
        QCOMPARE(success, QByteArray());
        QCOMPARE(desktop.registrar.journal, (QStringList{QStringLiteral("register 8+2560 as 1"),
                                                         QStringLiteral("register 8+256 as 2")}));
    }

    void anIdThatIsNotOursCallsNothing()
    {
        Desktop desktop;
        desktop.add(optionShiftC, QStringLiteral("a"));
        desktop.registrar.sendId(0, KeyDirection::Press);
        desktop.registrar.sendId(2, KeyDirection::Press);
        QCOMPARE(desktop.calls, QStringList());
    }

    void anUnregisteredIdIsNeverUsedAgain()
    {
        Desktop desktop;
        desktop.add(optionShiftC, QStringLiteral("a"));
        desktop.hotKeys.unregisterShortcut(optionShiftC);
        desktop.add(optionShiftC, QStringLiteral("b"));
        QCOMPARE(desktop.registrar.journal,
                 (QStringList{QStringLiteral("register 8+2560 as 1"), QStringLiteral("unregister 1"),
                              QStringLiteral("register 8+2560 as 2")}));
    }

    void anOpenMenuMovesTheShortcutsToItsKeysAndBackUnderTheirIds()
    {
        Desktop desktop;
        desktop.add(optionShiftC, QStringLiteral("a"));
        desktop.add(commandC, QStringLiteral("b"));
        desktop.registrar.journal.clear();

        desktop.hotKeys.setMenuOpen(true);
        QCOMPARE(desktop.registrar.journal,
                 (QStringList{QStringLiteral("unregister 1"), QStringLiteral("unregister 2")}));
        desktop.registrar.pressAndRelease(8, 0xA00);
        QCOMPARE(desktop.calls, QStringList());
        QVERIFY(desktop.registrar.sendRaw(8, 0xA00, KeyDirection::Press));
        QVERIFY(desktop.registrar.sendRaw(8, 0xA00, KeyDirection::Release));
        QCOMPARE(desktop.calls, (QStringList{QStringLiteral("a down"), QStringLiteral("a up")}));

        desktop.registrar.journal.clear();
        desktop.hotKeys.setMenuOpen(false);
        QCOMPARE(desktop.registrar.journal, (QStringList{QStringLiteral("register 8+2560 as 1"),
                                                         QStringLiteral("register 8+256 as 2")}));
        QVERIFY(!desktop.registrar.watchesRawKeys());
        desktop.registrar.pressAndRelease(8, 0x100);
        QCOMPARE(desktop.calls, (QStringList{QStringLiteral("a down"), QStringLiteral("a up"),
                                             QStringLiteral("b down"), QStringLiteral("b up")}));
    }

    void keysOfAMenuThatAreNoShortcutReachTheMenu_data()
    {
        QTest::addColumn<int>("keyCode");
        QTest::addColumn<int>("modifiers");
        QTest::addColumn<bool>("isSwallowed");
        QTest::newRow("the shortcut") << 8 << 0xA00 << true;
        QTest::newRow("the shortcut with Caps Lock in its mask") << 8 << 0xE00 << true;
        QTest::newRow("one modifier less") << 8 << 0x800 << false;
        QTest::newRow("one modifier more") << 8 << 0xB00 << false;
        QTest::newRow("another key") << 9 << 0xA00 << false;
        QTest::newRow("arrow down") << 125 << 0 << false;
    }
    void keysOfAMenuThatAreNoShortcutReachTheMenu()
    {
        QFETCH(const int, keyCode);
        QFETCH(const int, modifiers);
        QFETCH(const bool, isSwallowed);
        Desktop desktop;
        desktop.add(optionShiftC, QStringLiteral("a"));
        desktop.hotKeys.setMenuOpen(true);
        QCOMPARE(desktop.registrar.sendRaw(keyCode, modifiers, KeyDirection::Press), isSwallowed);
        QCOMPARE(desktop.calls, isSwallowed ? QStringList{QStringLiteral("a down")} : QStringList());
    }

    void aShortcutLostWhileTheMenuWasOpenPrintsItsLineAndIsGone()
    {
        Desktop desktop;
        desktop.add(optionShiftC, QStringLiteral("a"));
        desktop.add(commandC, QStringLiteral("b"));
        desktop.hotKeys.setMenuOpen(true);
        desktop.registrar.refused[{8, 0xA00}] = -9878;
        const auto output = outputOf([&] { desktop.hotKeys.setMenuOpen(false); });
        QCOMPARE(output, QByteArray("Error registering hotkey ⌥⇧C: -9878\n"));

        desktop.registrar.refused.clear();
        desktop.registrar.journal.clear();
        desktop.hotKeys.setMenuOpen(true);
        desktop.hotKeys.setMenuOpen(false);
        QCOMPARE(desktop.registrar.journal,
                 (QStringList{QStringLiteral("unregister 2"), QStringLiteral("register 8+256 as 2")}));
    }

    void aShortcutAddedWhileAMenuIsOpenWaitsForItToClose()
    {
        Desktop desktop;
        desktop.add(optionShiftC, QStringLiteral("a"));
        desktop.hotKeys.setMenuOpen(true);
        desktop.registrar.journal.clear();
        desktop.add(commandC, QStringLiteral("b"));
        QCOMPARE(desktop.registrar.journal,
                 (QStringList{QStringLiteral("register 8+256 as 2"), QStringLiteral("unregister 2")}));
        QVERIFY(desktop.registrar.sendRaw(8, 0x100, KeyDirection::Press));
        QCOMPARE(desktop.calls, (QStringList{QStringLiteral("b down")}));
    }

    void disabledNothingIsTakenAndNoKeyIsWatched()
    {
        Desktop desktop;
        desktop.add(optionShiftC, QStringLiteral("a"));
        desktop.registrar.journal.clear();
        desktop.hotKeys.setEnabled(false);
        QCOMPARE(desktop.registrar.journal, (QStringList{QStringLiteral("unregister 1")}));
        desktop.hotKeys.setMenuOpen(true);
        QVERIFY(!desktop.registrar.watchesRawKeys());
        desktop.hotKeys.setMenuOpen(false);
        QVERIFY(!desktop.registrar.hasHotKeyHandler());

        desktop.registrar.journal.clear();
        desktop.hotKeys.setEnabled(true);
        QCOMPARE(desktop.registrar.journal, (QStringList{QStringLiteral("register 8+2560 as 1")}));
        desktop.registrar.pressAndRelease(8, 0xA00);
        QCOMPARE(desktop.calls, (QStringList{QStringLiteral("a down"), QStringLiteral("a up")}));
    }

    void sayingTheSameAgainChangesNothing()
    {
        Desktop desktop;
        desktop.add(optionShiftC, QStringLiteral("a"));
        desktop.registrar.journal.clear();
        desktop.hotKeys.setEnabled(true);
        desktop.hotKeys.setMenuOpen(false);
        QCOMPARE(desktop.registrar.journal, QStringList());
    }

    void nothingHappensBeforeTheFirstRegistration()
    {
        Desktop desktop;
        desktop.hotKeys.setMenuOpen(true);
        QVERIFY(!desktop.registrar.watchesRawKeys());
        desktop.add(optionShiftC, QStringLiteral("a"));
        QVERIFY(desktop.registrar.watchesRawKeys());
    }

    void anActionMayDropItsOwnShortcut()
    {
        Desktop desktop;
        desktop.hotKeys.registerShortcut(
            optionShiftC,
            [&, label = QStringLiteral("a label too long to be kept inside the function object")](
                const Shortcut& shortcut) {
                desktop.hotKeys.unregisterShortcut(shortcut);
                desktop.calls << label;
            },
            [](const Shortcut&) {});
        desktop.registrar.pressAndRelease(8, 0xA00);
        QCOMPARE(desktop.calls.size(), 1);
    }

    void givesEverythingBackAtItsEnd()
    {
        ScriptedHotKeyRegistrar registrar;
        const ScriptedKeyboardLayout layout;
        {
            CarbonKeyboardShortcuts hotKeys(registrar, layout);
            hotKeys.registerShortcut(
                optionShiftC, [](const Shortcut&) {}, [](const Shortcut&) {});
        }
        QCOMPARE(registrar.journal,
                 (QStringList{QStringLiteral("register 8+2560 as 1"), QStringLiteral("unregister 1")}));
        QVERIFY(!registrar.hasHotKeyHandler());
    }
};

} // namespace tintwick::test

QTEST_APPLESS_MAIN(tintwick::test::CarbonKeyboardShortcutsTest)
#include "CarbonKeyboardShortcutsTest.moc"
