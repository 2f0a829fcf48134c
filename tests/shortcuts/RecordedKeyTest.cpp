#include "RecordedKey.h"
#include "KeyPress.h"
#include "RecorderServices.h"
#include "Registry.h"
#include "ShortcutNames.h"
#include "support/ScriptedHotKeyRegistrar.h"
#include "support/ScriptedKeyRecording.h"
#include "support/ScriptedKeyboardLayout.h"

#include <QSettings>
#include <QTemporaryDir>
#include <QTest>

namespace tintwick::test {

using namespace KeyboardShortcuts;

namespace {

using Meaning = RecordedKey::Meaning;

constexpr int none = 0, command = 0x100, shift = 0x200, option = 0x800, control = 0x1000, function = 0x20000;

/// A desktop that holds ⌘D and ⌃Q, and a program with a menu of three keys.
struct Program
{
    QTemporaryDir folder;
    QSettings settings{folder.filePath(QStringLiteral("settings.ini")), QSettings::IniFormat};
    ScriptedHotKeyRegistrar registrar;
    ScriptedKeyboardLayout layout;
    ScriptedKeyRecording keys;
    Registry registry{registrar, layout, settings};
    std::vector<MenuItem> menu{
        {QStringLiteral("Pick"), {}, 0},
        {QStringLiteral("Quit"), QStringLiteral("q"), 0x40000},
        {QStringLiteral("Export"), {}, 0, {{QStringLiteral("As CSS"), QStringLiteral("\uF708"), 0}}}};

    Program()
    {
        layout.characters = {{8, QStringLiteral("c")}, {2, QStringLiteral("d")}, {12, QStringLiteral("q")}};
        registrar.refused = {{{2, command}, HotKeyRegistrar::statusTaken},
                             {{12, control}, HotKeyRegistrar::statusTaken}};
    }

    [[nodiscard]] RecordedKey press(int keyCode, int modifiers = none)
    {
        return recordedKey({keyCode, modifiers, false}, {registry, keys, layout, [this] { return menu; }});
    }
};

} // namespace

class RecordedKeyTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aKeyMeansTheFirstCaseThatHolds_data()
    {
        QTest::addColumn<int>("keyCode");
        QTest::addColumn<int>("modifiers");
        QTest::addColumn<Meaning>("meaning");
        const auto row = [](const char* name, int keyCode, int modifiers, Meaning meaning) {
            QTest::newRow(name) << keyCode << modifiers << meaning;
        };

        row("Tab", 48, none, Meaning::PassOn);
        row("Shift Tab", 48, shift, Meaning::PassOn);
        row("Control Tab", 48, control, Meaning::Accept);
        row("Option Tab", 48, option, Meaning::Accept);
        row("Command Tab", 48, command, Meaning::Accept);
        row("Function Tab", 48, function, Meaning::Refuse);

        row("Escape", 53, none, Meaning::End);
        row("Shift Escape", 53, shift, Meaning::End);
        row("Control Escape", 53, control, Meaning::Accept);
        row("Command Escape", 53, command, Meaning::Accept);
        row("Function Escape", 53, function, Meaning::Refuse);

        row("Backspace", 51, none, Meaning::Clear);
        row("Shift Backspace", 51, shift, Meaning::Clear);
        row("Option Backspace", 51, option, Meaning::Accept);
        row("Forward Delete", 117, none, Meaning::Clear);
        row("Shift Forward Delete", 117, shift, Meaning::Clear);
        row("Command Forward Delete", 117, command, Meaning::Accept);
        row("Function Forward Delete", 117, function, Meaning::Refuse);

        row("C", 8, none, Meaning::Refuse);
        row("Shift C", 8, shift, Meaning::Refuse);
        row("Function C", 8, function, Meaning::Refuse);
        row("Shift Function C", 8, shift | function, Meaning::Refuse);
        row("Control C", 8, control, Meaning::Accept);
        row("Option C", 8, option, Meaning::Accept);
        row("Command C", 8, command, Meaning::Accept);
        row("Option Shift C", 8, option | shift, Meaning::Accept);
        row("all modifiers and C", 8, control | option | shift | command, Meaning::Accept);
        row("1", 18, none, Meaning::Refuse);
        row("Space", 49, none, Meaning::Refuse);
        row("Command Space", 49, command, Meaning::Accept);
        row("Return", 36, none, Meaning::Refuse);
        row("Control Return", 36, control, Meaning::Accept);
        row("Up", 126, none, Meaning::Refuse);
        row("Shift Up", 126, shift, Meaning::Refuse);
        row("Control Up", 126, control, Meaning::Accept);
        row("Home", 115, none, Meaning::Refuse);
        row("Page Down", 121, none, Meaning::Refuse);
        row("Help", 114, none, Meaning::Refuse);
        row("Volume Up", 72, none, Meaning::Refuse);

        row("5 on the keypad", 87, none, Meaning::Refuse);
        row("Shift 5 on the keypad", 87, shift, Meaning::Refuse);
        row("Option 5 on the keypad", 87, option, Meaning::Accept);
        row("Enter on the keypad", 76, none, Meaning::Refuse);
        row("Decimal on the keypad", 65, none, Meaning::Refuse);

        row("F1", 122, none, Meaning::Accept);
        row("F5 of the menu", 96, none, Meaning::UsedByMenuItem);
        row("Shift F5", 96, shift, Meaning::Accept);
        row("F6", 97, none, Meaning::Accept);
        row("Function F6", 97, function, Meaning::Accept);
        row("Shift Function F6", 97, shift | function, Meaning::Accept);
        row("F20", 90, none, Meaning::Accept);

        row("a key without a number", -1, none, Meaning::Refuse);
        row("Control and a key without a number", -1, control, Meaning::Refuse);

        row("Control Q of the menu, held by the desktop too", 12, control, Meaning::UsedByMenuItem);
        row("Control Shift Q", 12, control | shift, Meaning::Accept);
        row("Command Q", 12, command, Meaning::Accept);
        row("Command D of the desktop", 2, command, Meaning::UsedBySystem);
        row("Command Shift D", 2, command | shift, Meaning::Accept);
    }
    void aKeyMeansTheFirstCaseThatHolds()
    {
        QFETCH(const int, keyCode);
        QFETCH(const int, modifiers);
        QFETCH(const Meaning, meaning);
        Program program;
        QCOMPARE(program.press(keyCode, modifiers).meaning, meaning);
    }

    void theFunctionModifierIsNoPartOfTheShortcut()
    {
        Program program;
        QCOMPARE(program.press(97, function | shift).shortcut, (Shortcut{97, shift}));
        QCOMPARE(program.press(8, function | control).shortcut, (Shortcut{8, control}));
    }

    void modifiersThatAreNoneAreNoPartOfTheShortcut()
    {
        Program program;
        constexpr int capsLock = 0x400;
        QCOMPARE(program.press(8, control | capsLock), (RecordedKey{Meaning::Accept, {8, control}}));
        QCOMPARE(program.press(8, capsLock).meaning, Meaning::Refuse);
        QCOMPARE(program.press(53, capsLock).meaning, Meaning::End);
    }

    void aMenuItemIsNamed_data()
    {
        QTest::addColumn<int>("keyCode");
        QTest::addColumn<int>("modifiers");
        QTest::addColumn<QString>("title");
        QTest::newRow("in the menu") << 12 << control << "Quit";
        QTest::newRow("in a submenu") << 96 << none << "As CSS";
    }
    void aMenuItemIsNamed()
    {
        QFETCH(const int, keyCode);
        QFETCH(const int, modifiers);
        QFETCH(const QString, title);
        Program program;
        QCOMPARE(program.press(keyCode, modifiers),
                 (RecordedKey{Meaning::UsedByMenuItem, {keyCode, modifiers}, title}));
    }

    void aHeldKeyMeansNothing_data()
    {
        QTest::addColumn<int>("keyCode");
        QTest::newRow("Tab") << 48;
        QTest::newRow("Escape") << 53;
        QTest::newRow("Backspace") << 51;
        QTest::newRow("C") << 8;
        QTest::newRow("F6") << 97;
    }
    void aHeldKeyMeansNothing()
    {
        QFETCH(const int, keyCode);
        Program program;
        const RecorderServices services{program.registry, program.keys, program.layout,
                                        [] { return std::vector<MenuItem>(); }};
        QCOMPARE(recordedKey({keyCode, none, true}, services), RecordedKey{});
    }

    void ourOwnShortcutsAreFree()
    {
        Program program;
        program.registry.declare(shortcutnames::activatePicker());
        QCOMPARE(program.press(8, option | shift), (RecordedKey{Meaning::Accept, {8, option | shift}}));
    }

    void theDesktopIsNotAskedAboutKeysThatAreNoShortcut()
    {
        Program program;
        program.registrar.refused = {{{8, none}, HotKeyRegistrar::statusTaken},
                                     {{53, none}, HotKeyRegistrar::statusTaken}};
        QCOMPARE(program.press(8).meaning, Meaning::Refuse);
        QCOMPARE(program.press(53).meaning, Meaning::End);
    }
};

} // namespace tintwick::test

QTEST_GUILESS_MAIN(tintwick::test::RecordedKeyTest)
#include "RecordedKeyTest.moc"
