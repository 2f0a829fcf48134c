#include "Registry.h"
#include "ShortcutNames.h"
#include "support/OutputOf.h"
#include "support/ScriptedHotKeyRegistrar.h"
#include "support/ScriptedKeyboardLayout.h"

#include <QSettings>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

namespace tintwick::test {

using namespace KeyboardShortcuts;
using shortcutnames::activatePicker;
using shortcutnames::openMainWindow;

namespace {

constexpr Shortcut optionShiftC{8, 0xA00};
constexpr Shortcut commandC{8, 0x100};
const auto pickerKey = QStringLiteral("KeyboardShortcuts_activatePicker");
const auto panelKey = QStringLiteral("KeyboardShortcuts_openMainWindow");
const auto storedOptionShiftC = QStringLiteral(R"({"carbonKeyCode":8,"carbonModifiers":2560})");
const auto storedCommandC = QStringLiteral(R"({"carbonKeyCode":8,"carbonModifiers":256})");

// Settings files put texts with commas in quotes.
const QByteArray lineOfOptionShiftC =
    QByteArray(R"(KeyboardShortcuts_activatePicker="{'carbonKeyCode':8,'carbonModifiers':2560}")")
        .replace("'", R"(\")");

/// One start of the program; the folder keeps the settings from one start to the next.
struct Session
{
    QSettings settings;
    ScriptedHotKeyRegistrar registrar;
    ScriptedKeyboardLayout layout;
    Registry registry{registrar, layout, settings};
    QSignalSpy changes{&registry, &Registry::shortcutByNameDidChange};
    QStringList calls;

    explicit Session(const QTemporaryDir& folder)
        : settings(folder.filePath(QStringLiteral("settings.ini")), QSettings::IniFormat)
    {
        layout.characters[8] = QStringLiteral("c");
    }

    /// What the application does with its names.
    void declareBoth()
    {
        registry.declare(activatePicker());
        registry.declare(openMainWindow());
    }
    Registry::Action calling(const QString& label)
    {
        return [this, label] { calls << label; };
    }
    QString nameOfChange(qsizetype index) const { return changes.at(index).at(0).value<Name>().rawValue; }
};

} // namespace

class RegistryTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aFreshStoreGetsTheDefaultOfTheNameThatHasOne()
    {
        const QTemporaryDir folder;
        Session session(folder);
        session.declareBoth();
        QCOMPARE(session.settings.value(pickerKey).toString(), storedOptionShiftC);
        QVERIFY(!session.settings.contains(panelKey));
        QCOMPARE(session.registry.getShortcut(activatePicker()), std::optional(optionShiftC));
        QCOMPARE(session.registry.getShortcut(openMainWindow()), std::optional<Shortcut>());
        QCOMPARE(session.registrar.journal, QStringList{QStringLiteral("register 8+2560 as 1")});
        QCOMPARE(session.changes.count(), 1);
        QCOMPARE(session.nameOfChange(0), QStringLiteral("activatePicker"));
    }

    void theDefaultIsWrittenOnceAndRegisteredOnce()
    {
        const QTemporaryDir folder;
        Session session(folder);
        session.declareBoth();
        session.declareBoth();
        session.registry.onKeyUp(activatePicker(), [] {});
        session.registry.onKeyDown(activatePicker(), [] {});
        QCOMPARE(session.registrar.journal, QStringList{QStringLiteral("register 8+2560 as 1")});
        QCOMPARE(session.changes.count(), 1);
    }

    void whatIsStoredIsTakenAtTheNextStart()
    {
        const QTemporaryDir folder;
        {
            Session session(folder);
            session.declareBoth();
            session.registry.setShortcut(commandC, activatePicker());
        }
        Session session(folder);
        session.declareBoth();
        QCOMPARE(session.changes.count(), 0);
        QCOMPARE(session.registrar.journal, QStringList());
        session.registry.onKeyUp(activatePicker(), session.calling(QStringLiteral("picker")));
        QCOMPARE(session.registrar.journal, QStringList{QStringLiteral("register 8+256 as 1")});
        session.registrar.pressAndRelease(8, 0x100);
        QCOMPARE(session.calls, QStringList{QStringLiteral("picker")});
    }

    void theFileHoldsExactlyTheText()
    {
        const QTemporaryDir folder;
        Session session(folder);
        session.declareBoth();
        QFile file(session.settings.fileName());
        QVERIFY(file.open(QIODevice::ReadOnly));
        QVERIFY(file.readAll().contains(lineOfOptionShiftC));
    }

    void aRemovedDefaultStaysRemovedUntilItIsReset()
    {
        const QTemporaryDir folder;
        {
            Session session(folder);
            session.declareBoth();
            session.registry.setShortcut(std::nullopt, activatePicker());
            QCOMPARE(session.settings.value(pickerKey), QVariant(false));
            QCOMPARE(session.registrar.journal.last(), QStringLiteral("unregister 1"));
            QCOMPARE(session.changes.count(), 2);
        }
        Session session(folder);
        session.declareBoth();
        session.registry.onKeyUp(activatePicker(), [] {});
        QCOMPARE(session.registry.getShortcut(activatePicker()), std::optional<Shortcut>());
        QCOMPARE(session.registrar.journal, QStringList());
        QCOMPARE(session.changes.count(), 0);

        session.registry.reset(std::array{activatePicker()});
        QCOMPARE(session.settings.value(pickerKey).toString(), storedOptionShiftC);
        QCOMPARE(session.registrar.journal, QStringList{QStringLiteral("register 8+2560 as 1")});
        QCOMPARE(session.changes.count(), 1);
    }

    void removingWithoutADefaultDeletesTheKeyAndTellsOnce()
    {
        const QTemporaryDir folder;
        Session session(folder);
        session.declareBoth();
        session.registry.setShortcut(commandC, openMainWindow());
        QCOMPARE(session.settings.value(panelKey).toString(), storedCommandC);
        session.changes.clear();

        session.registry.setShortcut(std::nullopt, openMainWindow());
        QVERIFY(!session.settings.contains(panelKey));
        QCOMPARE(session.changes.count(), 1);
        session.registry.setShortcut(std::nullopt, openMainWindow());
        QCOMPARE(session.changes.count(), 1);
    }

    void storingWhatANameHasRegistersItAgainAndTellsOnce()
    {
        const QTemporaryDir folder;
        Session session(folder);
        session.declareBoth();
        session.changes.clear();
        session.registrar.journal.clear();
        session.registry.setShortcut(optionShiftC, activatePicker());
        QCOMPARE(session.registrar.journal,
                 (QStringList{QStringLiteral("unregister 1"), QStringLiteral("register 8+2560 as 2")}));
        QCOMPARE(session.changes.count(), 1);
    }

    void actionsFollowTheirNameToItsNewShortcut()
    {
        const QTemporaryDir folder;
        Session session(folder);
        session.declareBoth();
        session.registry.onKeyUp(activatePicker(), session.calling(QStringLiteral("picker")));
        session.registry.setShortcut(commandC, activatePicker());
        session.registrar.pressAndRelease(8, 0xA00);
        QCOMPARE(session.calls, QStringList());
        session.registrar.pressAndRelease(8, 0x100);
        QCOMPARE(session.calls, QStringList{QStringLiteral("picker")});
    }

    void badValuesReadAsNoShortcutAndAreOverwritten_data()
    {
        QTest::addColumn<QVariant>("value");
        QTest::newRow("an empty object") << QVariant(QStringLiteral("{}"));
        QTest::newRow("no JSON") << QVariant(QStringLiteral("abc"));
        QTest::newRow("false") << QVariant(false);
        QTest::newRow("true") << QVariant(true);
        QTest::newRow("the text false") << QVariant(QStringLiteral("false"));
        QTest::newRow("a number") << QVariant(8);
        QTest::newRow("a list") << QVariant(QStringList{storedOptionShiftC, storedCommandC});
        QTest::newRow("nothing") << QVariant(QString());
    }
    void badValuesReadAsNoShortcutAndAreOverwritten()
    {
        QFETCH(const QVariant, value);
        const QTemporaryDir folder;
        {
            QSettings settings(folder.filePath(QStringLiteral("settings.ini")), QSettings::IniFormat);
            settings.setValue(pickerKey, value);
        }
        Session session(folder);
        session.declareBoth();
        session.registry.onKeyUp(activatePicker(), [] {});
        QCOMPARE(session.registry.getShortcut(activatePicker()), std::optional<Shortcut>());
        QCOMPARE(session.registrar.journal, QStringList());
        QCOMPARE(session.changes.count(), 0);
        session.registry.setShortcut(std::nullopt, activatePicker());
        QCOMPARE(session.changes.count(), 0);

        session.registry.setShortcut(optionShiftC, activatePicker());
        QCOMPARE(session.settings.value(pickerKey).toString(), storedOptionShiftC);
        QCOMPARE(session.changes.count(), 1);
    }

    void resetAllRemovesEveryStoredShortcut()
    {
        const QTemporaryDir folder;
        Session session(folder);
        session.declareBoth();
        session.registry.setShortcut(commandC, openMainWindow());
        session.settings.setValue(QStringLiteral("scopeShape"), QStringLiteral("circle"));
        session.settings.setValue(QStringLiteral("KeyboardShortcuts_fromAnotherVersion"), storedCommandC);
        session.changes.clear();

        session.registry.resetAll();
        QVERIFY(!session.settings.contains(pickerKey));
        QVERIFY(!session.settings.contains(panelKey));
        QCOMPARE(session.settings.allKeys(), QStringList{QStringLiteral("scopeShape")});
        QCOMPARE(session.changes.count(), 3);
        QCOMPARE(session.registrar.journal.filter(QStringLiteral("unregister")).size(), 2);
    }

    void allNamesWithThePressedShortcutAreCalledInOrder()
    {
        const QTemporaryDir folder;
        Session session(folder);
        session.declareBoth();
        session.registry.onKeyUp(activatePicker(), session.calling(QStringLiteral("picker up 1")));
        session.registry.onKeyUp(openMainWindow(), session.calling(QStringLiteral("panel up")));
        session.registry.onKeyUp(activatePicker(), session.calling(QStringLiteral("picker up 2")));
        session.registry.onKeyDown(openMainWindow(), session.calling(QStringLiteral("panel down")));
        session.registry.setShortcut(optionShiftC, openMainWindow());
        QCOMPARE(session.registrar.journal, QStringList{QStringLiteral("register 8+2560 as 1")});

        session.registrar.pressAndRelease(8, 0xA00);
        QCOMPARE(session.calls, (QStringList{QStringLiteral("panel down"), QStringLiteral("picker up 1"),
                                             QStringLiteral("picker up 2"), QStringLiteral("panel up")}));
    }

    void aSharedShortcutStaysWithTheNameThatKeepsIt_data()
    {
        QTest::addColumn<std::optional<Shortcut>>("shortcut");
        QTest::newRow("the other name changes") << std::optional(commandC);
        QTest::newRow("the other name is emptied") << std::optional<Shortcut>();
    }
    void aSharedShortcutStaysWithTheNameThatKeepsIt()
    {
        QFETCH(const std::optional<Shortcut>, shortcut);
        const QTemporaryDir folder;
        Session session(folder);
        session.declareBoth();
        session.registry.onKeyUp(activatePicker(), session.calling(QStringLiteral("picker")));
        session.registry.onKeyUp(openMainWindow(), session.calling(QStringLiteral("panel")));
        session.registry.setShortcut(optionShiftC, openMainWindow());
        session.registry.setShortcut(shortcut, openMainWindow());
        session.registrar.pressAndRelease(8, 0xA00);
        QCOMPARE(session.calls, QStringList{QStringLiteral("picker")});
    }

    void theStoreIsAskedAfreshAtEachPress()
    {
        const QTemporaryDir folder;
        Session session(folder);
        session.declareBoth();
        session.registry.onKeyUp(activatePicker(), session.calling(QStringLiteral("picker")));
        session.settings.setValue(pickerKey, storedCommandC);
        session.registrar.pressAndRelease(8, 0xA00);
        QCOMPARE(session.calls, QStringList());
    }

    void whileARecorderRecordsNoActionIsCalled()
    {
        const QTemporaryDir folder;
        Session session(folder);
        QSignalSpy status(&session.registry, &Registry::recorderActiveStatusDidChange);
        session.declareBoth();
        session.registry.onKeyDown(activatePicker(), session.calling(QStringLiteral("down")));
        session.registry.onKeyUp(activatePicker(), session.calling(QStringLiteral("up")));

        session.registry.setRecorderActive(true);
        QVERIFY(session.registry.isPaused());
        session.registry.setRecorderActive(true);
        session.registrar.pressAndRelease(8, 0xA00);
        QCOMPARE(session.calls, QStringList());

        session.registry.setRecorderActive(false);
        session.registrar.pressAndRelease(8, 0xA00);
        QCOMPARE(session.calls, (QStringList{QStringLiteral("down"), QStringLiteral("up")}));
        QCOMPARE(status, (QList<QVariantList>{{true}, {false}}));
    }

    void disabledNoActionIsCalledAndNothingIsForgotten()
    {
        const QTemporaryDir folder;
        Session session(folder);
        session.declareBoth();
        session.registry.onKeyUp(activatePicker(), session.calling(QStringLiteral("picker")));
        session.registry.setEnabled(false);
        QVERIFY(!session.registry.isEnabled());
        session.registrar.pressAndRelease(8, 0xA00);
        QCOMPARE(session.calls, QStringList());
        QCOMPARE(session.settings.value(pickerKey).toString(), storedOptionShiftC);

        session.registry.setEnabled(true);
        session.registrar.pressAndRelease(8, 0xA00);
        QCOMPARE(session.calls, QStringList{QStringLiteral("picker")});
    }

    void inAnOpenMenuTheShortcutIsSwallowedAndItsActionCalledOnce()
    {
        const QTemporaryDir folder;
        Session session(folder);
        session.declareBoth();
        session.registry.onKeyUp(activatePicker(), session.calling(QStringLiteral("picker")));
        session.registry.setMenuOpen(true);
        QVERIFY(session.registrar.sendRaw(8, 0xA00, KeyDirection::Press));
        QVERIFY(session.registrar.sendRaw(8, 0xA00, KeyDirection::Release));
        QVERIFY(!session.registrar.sendRaw(125, 0, KeyDirection::Press));
        QCOMPARE(session.calls, QStringList{QStringLiteral("picker")});
    }

    void withoutActionsAShortcutIsGivenBack()
    {
        const QTemporaryDir folder;
        Session session(folder);
        session.declareBoth();
        session.registry.onKeyUp(activatePicker(), session.calling(QStringLiteral("picker up")));
        session.registry.onKeyDown(activatePicker(), session.calling(QStringLiteral("picker down")));
        session.registry.onKeyUp(openMainWindow(), session.calling(QStringLiteral("panel")));
        session.registry.setShortcut(commandC, openMainWindow());
        session.registrar.journal.clear();

        session.registry.removeHandler(activatePicker());
        QCOMPARE(session.registrar.journal, QStringList{QStringLiteral("unregister 1")});
        session.registry.removeAllHandlers();
        QCOMPARE(session.registrar.journal,
                 (QStringList{QStringLiteral("unregister 1"), QStringLiteral("unregister 2")}));
        QCOMPARE(session.settings.value(pickerKey).toString(), storedOptionShiftC);

        session.registry.onKeyUp(activatePicker(), session.calling(QStringLiteral("again")));
        session.registrar.pressAndRelease(8, 0xA00);
        QCOMPARE(session.calls, QStringList{QStringLiteral("again")});
    }

    void aShortcutThatAnotherNameStillNeedsIsKept()
    {
        const QTemporaryDir folder;
        Session session(folder);
        session.declareBoth();
        session.registry.onKeyUp(activatePicker(), session.calling(QStringLiteral("picker")));
        session.registry.onKeyUp(openMainWindow(), session.calling(QStringLiteral("panel")));
        session.registry.setShortcut(optionShiftC, openMainWindow());
        session.registrar.journal.clear();
        session.registry.removeHandler(activatePicker());
        QCOMPARE(session.registrar.journal, QStringList());
        session.registrar.pressAndRelease(8, 0xA00);
        QCOMPARE(session.calls, QStringList{QStringLiteral("panel")});
    }

    void anActionMayRemoveItself()
    {
        const QTemporaryDir folder;
        Session session(folder);
        session.declareBoth();
        session.registry.onKeyUp(activatePicker(), [&] {
            session.registry.removeAllHandlers();
            session.calls << QStringLiteral("once");
        });
        session.registry.onKeyUp(activatePicker(), session.calling(QStringLiteral("beside it")));
        session.registrar.pressAndRelease(8, 0xA00);
        session.registrar.pressAndRelease(8, 0xA00);
        QCOMPARE(session.calls, (QStringList{QStringLiteral("once"), QStringLiteral("beside it")}));
    }

    void aRefusedShortcutStaysStoredAndPrintsOneLine()
    {
        const QTemporaryDir folder;
        Session session(folder);
        session.registrar.refused[{8, 0xA00}] = -9878;
        const auto output = outputOf([&] {
            session.declareBoth();
            session.registry.onKeyUp(activatePicker(), session.calling(QStringLiteral("picker")));
            session.registry.onKeyUp(openMainWindow(), session.calling(QStringLiteral("panel")));
        });
        QCOMPARE(output, QByteArray("Error registering hotkey ⌥⇧C: -9878\n"));
        QCOMPARE(session.settings.value(pickerKey).toString(), storedOptionShiftC);

        session.registry.setShortcut(commandC, openMainWindow());
        session.registrar.pressAndRelease(8, 0x100);
        QCOMPARE(session.calls, QStringList{QStringLiteral("panel")});
        QCOMPARE(session.registrar.journal.last(), QStringLiteral("register 8+256 as 2"));
    }

    void theSystemsShortcutsAreThoseThatSomeoneElseHolds()
    {
        const QTemporaryDir folder;
        Session session(folder);
        session.registrar.refused[{8, 0x100}] = -9878;
        QVERIFY(session.registry.isTakenBySystem(commandC));
        QVERIFY(!session.registry.isTakenBySystem(optionShiftC));
    }

    void aNewLayoutIsPassedOn()
    {
        const QTemporaryDir folder;
        Session session(folder);
        QSignalSpy layoutChanges(&session.registry, &Registry::keyboardLayoutDidChange);
        session.layout.reportChange();
        QCOMPARE(layoutChanges.count(), 1);
    }

    void namesAreEqualByTheirRawValueOnly()
    {
        const Name picker{QStringLiteral("activatePicker"), std::nullopt};
        QVERIFY(picker == activatePicker());
        QCOMPARE(qHash(picker), qHash(activatePicker()));
        QVERIFY(picker != openMainWindow());
    }
};

} // namespace tintwick::test

QTEST_GUILESS_MAIN(tintwick::test::RegistryTest)
#include "RegistryTest.moc"
