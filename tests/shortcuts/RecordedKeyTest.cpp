#include "RecordedKey.h"
#include "KeyPress.h"
#include "Preferences.h"
#include "RecorderServices.h"
#include "ShortcutRegistry.h"
#include "support/ScriptedGlobalShortcuts.h"
#include "support/ScriptedKeyboardLayout.h"

#include <QMenu>
#include <QTemporaryDir>
#include <QTest>

namespace tintwick::test {

namespace {

using Meaning = RecordedKey::Meaning;

constexpr int none = 0, super = 0x100, shift = 0x200, alt = 0x800, control = 0x1000, function = 0x20000;

/// A desktop that holds Super+D and Control+Q, and a program with a menu of three items.
struct Program
{
    QTemporaryDir folder;
    Preferences preferences{folder.filePath(QStringLiteral("settings.conf"))};
    ScriptedGlobalShortcuts desktop;
    ScriptedKeyboardLayout layout;
    ShortcutRegistry registry{desktop, layout, preferences};
    QMenu menu;

    Program()
    {
        layout.characters = {{8, QStringLiteral("c")}, {2, QStringLiteral("d")}, {12, QStringLiteral("q")}};
        desktop.taken = {{2, super}, {12, control}};
        menu.addAction(QStringLiteral("Pick"));
        menu.addAction(QStringLiteral("Quit"))->setShortcut(Qt::CTRL | Qt::Key_Q);
        menu.addMenu(QStringLiteral("Export"))->addAction(QStringLiteral("As CSS"))->setShortcut(Qt::Key_F5);
    }

    [[nodiscard]] RecordedKey press(int keyCode, int modifiers = none, bool isRepeat = false)
    {
        return press({.keyCode = keyCode, .modifiers = modifiers, .isRepeat = isRepeat});
    }
    [[nodiscard]] RecordedKey press(const KeyPress& press)
    {
        return recordedKey(press, ShortcutAction::ActivatePicker, {registry, nullptr, layout, menu});
    }
};

} // namespace

class RecordedKeyTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aKeyHasTheFirstMeaningThatApplies_data()
    {
        QTest::addColumn<int>("keyCode");
        QTest::addColumn<int>("modifiers");
        QTest::addColumn<Meaning>("meaning");
        const auto row = [](const char* name, int keyCode, int modifiers, Meaning meaning) {
            QTest::newRow(name) << keyCode << modifiers << meaning;
        };

        row("Tab", 48, none, Meaning::PassOn);
        row("Shift Tab", 48, shift, Meaning::PassOn);
        row("Control Tab", 48, control, Meaning::UsedByMostPrograms);
        row("Alt Tab", 48, alt, Meaning::UsedByMostPrograms);
        row("Super Tab", 48, super, Meaning::UsedByMostPrograms);
        row("Function Tab", 48, function, Meaning::Refuse);

        row("Escape", 53, none, Meaning::End);
        row("Shift Escape", 53, shift, Meaning::End);
        row("Control Escape", 53, control, Meaning::Accept);
        row("Super Escape", 53, super, Meaning::Accept);
        row("Function Escape", 53, function, Meaning::Refuse);

        row("Backspace", 51, none, Meaning::Clear);
        row("Shift Backspace", 51, shift, Meaning::Clear);
        row("Alt Backspace", 51, alt, Meaning::Accept);
        row("Forward Delete", 117, none, Meaning::Clear);
        row("Shift Forward Delete", 117, shift, Meaning::Clear);
        row("Super Forward Delete", 117, super, Meaning::Accept);
        row("Function Forward Delete", 117, function, Meaning::Refuse);

        row("C", 8, none, Meaning::Refuse);
        row("Shift C", 8, shift, Meaning::Refuse);
        row("Function C", 8, function, Meaning::Refuse);
        row("Shift Function C", 8, shift | function, Meaning::Refuse);
        row("Control C", 8, control, Meaning::UsedByMostPrograms);
        row("Alt C", 8, alt, Meaning::Accept);
        row("Super C", 8, super, Meaning::Accept);
        row("Alt Shift C", 8, alt | shift, Meaning::Accept);
        row("all modifiers and C", 8, control | alt | shift | super, Meaning::Accept);
        row("1", 18, none, Meaning::Refuse);
        row("Space", 49, none, Meaning::Refuse);
        row("Super Space", 49, super, Meaning::Accept);
        row("Return", 36, none, Meaning::Refuse);
        row("Control Return", 36, control, Meaning::Accept);
        row("Up", 126, none, Meaning::Refuse);
        row("Shift Up", 126, shift, Meaning::Refuse);
        row("Control Up", 126, control, Meaning::Accept);
        row("Home", 115, none, Meaning::Refuse);
        row("Page Down", 121, none, Meaning::Refuse);
        row("Insert", 114, none, Meaning::Refuse);
        row("Alt Insert", 114, alt, Meaning::Accept);
        row("Volume Up", 72, none, Meaning::Refuse);
        row("Super Volume Up", 72, super, Meaning::Accept);
        row("Play", 65700, none, Meaning::Refuse);
        row("Control Play", 65700, control, Meaning::Accept);
        row("Print", 65635, none, Meaning::Accept);
        row("Shift Print", 65635, shift, Meaning::Accept);
        row("Pause", 65655, none, Meaning::Refuse);
        row("Control Pause", 65655, control, Meaning::Accept);
        row("Menu", 65663, none, Meaning::Refuse);
        row("Super Menu", 65663, super, Meaning::Accept);

        row("5 on the keypad", 87, none, Meaning::Refuse);
        row("Shift 5 on the keypad", 87, shift, Meaning::Refuse);
        row("Alt 5 on the keypad", 87, alt, Meaning::Accept);
        row("Enter on the keypad", 76, none, Meaning::Refuse);
        row("Decimal on the keypad", 65, none, Meaning::Refuse);

        row("F1", 122, none, Meaning::Accept);
        row("F5 of the menu", 96, none, Meaning::UsedByMenuItem);
        row("Shift F5", 96, shift, Meaning::Accept);
        row("F6", 97, none, Meaning::Accept);
        row("Function F6", 97, function, Meaning::Accept);
        row("Shift Function F6", 97, shift | function, Meaning::Accept);
        row("F20", 90, none, Meaning::Accept);
        row("F24", 65730, none, Meaning::Accept);

        row("a key without a number", -1, none, Meaning::Refuse);
        row("Control and a key without a number", -1, control, Meaning::Refuse);

        row("Control Q of the menu, held by the desktop too", 12, control, Meaning::UsedByMenuItem);
        row("Control Shift Q", 12, control | shift, Meaning::Accept);
        row("Super Q", 12, super, Meaning::Accept);
        row("Super D of the desktop", 2, super, Meaning::UsedBySystem);
        row("Super Shift D", 2, super | shift, Meaning::Accept);
    }
    void aKeyHasTheFirstMeaningThatApplies()
    {
        QFETCH(const int, keyCode);
        QFETCH(const int, modifiers);
        QFETCH(const Meaning, meaning);
        Program program;
        QCOMPARE(program.press(keyCode, modifiers).meaning, meaning);
    }

    void theFunctionModifierIsNotPartOfTheShortcut()
    {
        Program program;
        QCOMPARE(program.press(97, function | shift).shortcut, (Shortcut{97, shift}));
        QCOMPARE(program.press(8, function | control).shortcut, (Shortcut{8, control}));
    }

    void otherModifierBitsAreNotPartOfTheShortcut()
    {
        Program program;
        constexpr int capsLock = 0x400;
        QCOMPARE(program.press(8, alt | capsLock), (RecordedKey{Meaning::Accept, {8, alt}}));
        QCOMPARE(program.press(8, capsLock).meaning, Meaning::Refuse);
        QCOMPARE(program.press(53, capsLock).meaning, Meaning::End);
    }

    void theTitleOfTheMenuItemIsReturned_data()
    {
        QTest::addColumn<int>("keyCode");
        QTest::addColumn<int>("modifiers");
        QTest::addColumn<QString>("title");
        QTest::newRow("in the menu") << 12 << control << "Quit";
        QTest::newRow("in a submenu") << 96 << none << "As CSS";
    }
    void theTitleOfTheMenuItemIsReturned()
    {
        QFETCH(const int, keyCode);
        QFETCH(const int, modifiers);
        QFETCH(const QString, title);
        Program program;
        QCOMPARE(program.press(keyCode, modifiers),
                 (RecordedKey{Meaning::UsedByMenuItem, {keyCode, modifiers}, title}));
    }

    void aKeyMeansWhatItTypesAndNotItsPosition_data()
    {
        QTest::addColumn<int>("keyCode");
        QTest::addColumn<char32_t>("character");
        QTest::addColumn<Meaning>("meaning");
        constexpr int capsLock = 57, escape = 53, backspace = 51;
        QTest::newRow("Caps Lock that types Escape") << capsLock << U'\u001B' << Meaning::End;
        QTest::newRow("Caps Lock that types Backspace") << capsLock << U'\b' << Meaning::Clear;
        QTest::newRow("a key that types Delete") << capsLock << U'\u007F' << Meaning::Clear;
        QTest::newRow("Escape that types a letter") << escape << U'x' << Meaning::Refuse;
        QTest::newRow("Backspace that types a letter") << backspace << U'x' << Meaning::Refuse;
        QTest::newRow("Escape that types Escape") << escape << U'\u001B' << Meaning::End;
        QTest::newRow("a key without a code that types Escape") << -1 << U'\u001B' << Meaning::End;
    }
    void aKeyMeansWhatItTypesAndNotItsPosition()
    {
        QFETCH(const int, keyCode);
        QFETCH(const char32_t, character);
        QFETCH(const Meaning, meaning);
        Program program;
        QCOMPARE(program.press({.keyCode = keyCode, .character = character}).meaning, meaning);
    }

    void aRefusalHasAReason_data()
    {
        QTest::addColumn<KeyPress>("press");
        QTest::addColumn<RecordedKey::Refusal>("refusal");
        using Refusal = RecordedKey::Refusal;
        QTest::newRow("a letter alone") << KeyPress{.keyCode = 8} << Refusal::NeedsModifier;
        QTest::newRow("with Shift") << KeyPress{.keyCode = 8, .modifiers = shift} << Refusal::NeedsModifier;
        QTest::newRow("an unknown key") << KeyPress{.keyCode = -1, .modifiers = alt} << Refusal::UnknownKey;
        QTest::newRow("with AltGr") << KeyPress{.keyCode = -1, .hasOtherModifier = true}
                                    << Refusal::OtherModifier;
        QTest::newRow("Escape with AltGr")
            << KeyPress{.keyCode = -1, .character = U'\u001B', .hasOtherModifier = true}
            << Refusal::OtherModifier;
    }
    void aRefusalHasAReason()
    {
        QFETCH(const KeyPress, press);
        QFETCH(const RecordedKey::Refusal, refusal);
        Program program;
        QCOMPARE(program.press(press), (RecordedKey{.meaning = Meaning::Refuse, .refusal = refusal}));
    }

    void theShortcutOfAnotherActionIsNoticed()
    {
        Program program;
        program.registry.setShortcut(ShortcutAction::OpenMainWindow, Shortcut{97, none});
        QCOMPARE(program.press(97, none),
                 (RecordedKey{Meaning::UsedByOtherAction, {97, none}, QStringLiteral("Open Main Window")}));
        QCOMPARE(program.press(97, shift).meaning, Meaning::Accept);
    }

    void thePresentShortcutIsAcceptedAgain()
    {
        Program program;
        for (const auto action : allShortcutActions) {
            program.registry.setShortcut(action, Shortcut{8, control});
        }
        QCOMPARE(program.press(8, control), (RecordedKey{Meaning::Accept, {8, control}}));
    }

    void aShortcutOfMostProgramsHasItsUse()
    {
        Program program;
        QCOMPARE(program.press(8, control),
                 (RecordedKey{Meaning::UsedByMostPrograms, {8, control}, QStringLiteral("copy")}));
    }

    void aRepeatedKeyIsIgnored_data()
    {
        QTest::addColumn<int>("keyCode");
        QTest::newRow("Tab") << 48;
        QTest::newRow("Escape") << 53;
        QTest::newRow("Backspace") << 51;
        QTest::newRow("C") << 8;
        QTest::newRow("F6") << 97;
    }
    void aRepeatedKeyIsIgnored()
    {
        QFETCH(const int, keyCode);
        Program program;
        QCOMPARE(program.press(keyCode, none, true), RecordedKey{});
    }

    void ourOwnShortcutsAreFree()
    {
        Program program;
        program.registry.start();
        QCOMPARE(program.press(8, alt | shift), (RecordedKey{Meaning::Accept, {8, alt | shift}}));
    }

    void refusedKeysDoNotDependOnTheDesktop()
    {
        Program program;
        program.desktop.taken = {{8, none}, {53, none}};
        QCOMPARE(program.press(8).meaning, Meaning::Refuse);
        QCOMPARE(program.press(53).meaning, Meaning::End);
    }
};

} // namespace tintwick::test

QTEST_MAIN(tintwick::test::RecordedKeyTest)
#include "RecordedKeyTest.moc"
