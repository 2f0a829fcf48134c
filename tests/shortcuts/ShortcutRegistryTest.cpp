#include "ShortcutRegistry.h"
#include "Preferences.h"
#include "support/OutputOf.h"
#include "support/ScriptedGlobalShortcuts.h"
#include "support/ScriptedKeyboardLayout.h"

#include <QFile>
#include <QSettings>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

namespace tintwick::test {

namespace {

constexpr auto picker = ShortcutAction::ActivatePicker;
constexpr auto panel = ShortcutAction::OpenMainWindow;
constexpr Shortcut altShiftC{8, 0xA00};
constexpr Shortcut superC{8, 0x100};
const auto pickerKey = QStringLiteral("KeyboardShortcuts_activatePicker");
const auto panelKey = QStringLiteral("KeyboardShortcuts_openMainWindow");
const auto storedAltShiftC = QStringLiteral(R"({"carbonKeyCode":8,"carbonModifiers":2560})");
const auto storedSuperC = QStringLiteral(R"({"carbonKeyCode":8,"carbonModifiers":256})");

// Settings files quote texts that have commas.
const QByteArray lineOfAltShiftC =
    QByteArray(R"(KeyboardShortcuts_activatePicker="{'carbonKeyCode':8,'carbonModifiers':2560}")")
        .replace("'", R"(\")");

QString fileIn(const QTemporaryDir& folder)
{
    return folder.filePath(QStringLiteral("settings.conf"));
}

/// Another program edits the settings file.
void edit(const QTemporaryDir& folder, const QString& key, const QVariant& value)
{
    QSettings settings(fileIn(folder), QSettings::NativeFormat);
    settings.setValue(key, value);
    settings.sync();
}

/// One start of the program. The folder keeps the settings from one start to the next.
struct Session
{
    QString path;
    Preferences preferences;
    ScriptedGlobalShortcuts desktop;
    ScriptedKeyboardLayout layout;
    ShortcutRegistry registry{desktop, layout, preferences};
    QSignalSpy changes{&registry, &ShortcutRegistry::shortcutChanged};
    /// "<id> down" and "<id> up".
    QStringList calls;

    explicit Session(const QTemporaryDir& folder)
        : path(fileIn(folder))
        , preferences(path)
    {
        layout.characters[8] = QStringLiteral("c");
        QObject::connect(&registry, &ShortcutRegistry::activated, &registry,
                         [this](ShortcutAction action) { calls << idOf(action) + QStringLiteral(" down"); });
        QObject::connect(&registry, &ShortcutRegistry::deactivated, &registry,
                         [this](ShortcutAction action) { calls << idOf(action) + QStringLiteral(" up"); });
    }

    [[nodiscard]] QVariant stored(const QString& key) const
    {
        return QSettings(path, QSettings::NativeFormat).value(key);
    }
    [[nodiscard]] ShortcutAction changedAction(qsizetype index) const
    {
        return changes.at(index).at(0).value<ShortcutAction>();
    }
};

} // namespace

class ShortcutRegistryTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theFirstStartStoresAndBindsTheDefault()
    {
        const QTemporaryDir folder;
        Session session(folder);
        session.registry.start();
        QCOMPARE(session.stored(pickerKey).toString(), storedAltShiftC);
        QVERIFY(!session.stored(panelKey).isValid());
        QCOMPARE(session.registry.shortcut(picker), std::optional(altShiftC));
        QCOMPARE(session.registry.shortcut(panel), std::optional<Shortcut>());
        QCOMPARE(session.desktop.journal, QStringList{QStringLiteral("bind activatePicker 8+2560")});
        QCOMPARE(session.changes.count(), 1);
        QCOMPARE(session.changedAction(0), picker);
    }

    void theStoredShortcutIsBoundAtTheNextStart()
    {
        const QTemporaryDir folder;
        {
            Session session(folder);
            session.registry.start();
            session.registry.setShortcut(picker, superC);
        }
        Session session(folder);
        session.registry.start();
        QCOMPARE(session.changes.count(), 0);
        QCOMPARE(session.desktop.journal, QStringList{QStringLiteral("bind activatePicker 8+256")});
        session.desktop.pressAndRelease(superC);
        QCOMPARE(session.calls,
                 (QStringList{QStringLiteral("activatePicker down"), QStringLiteral("activatePicker up")}));
    }

    void theFileHoldsTheText()
    {
        const QTemporaryDir folder;
        Session session(folder);
        session.registry.start();
        QFile file(fileIn(folder));
        QVERIFY(file.open(QIODevice::ReadOnly));
        QVERIFY(file.readAll().contains(lineOfAltShiftC));
    }

    void aRemovedDefaultIsNotStoredAgain()
    {
        const QTemporaryDir folder;
        {
            Session session(folder);
            session.registry.start();
            session.registry.setShortcut(picker, std::nullopt);
            QCOMPARE(session.stored(pickerKey).toString(), QStringLiteral("false"));
            QCOMPARE(session.desktop.journal.last(), QStringLiteral("unbind activatePicker"));
            QCOMPARE(session.changes.count(), 2);
        }
        Session session(folder);
        session.registry.start();
        QCOMPARE(session.registry.shortcut(picker), std::optional<Shortcut>());
        QCOMPARE(session.desktop.journal, QStringList());
        QCOMPARE(session.changes.count(), 0);

        session.registry.setShortcut(picker, altShiftC);
        QCOMPARE(session.stored(pickerKey).toString(), storedAltShiftC);
        QCOMPARE(session.desktop.journal, QStringList{QStringLiteral("bind activatePicker 8+2560")});
        QCOMPARE(session.changes.count(), 1);
    }

    void withoutADefaultRemovingDeletesTheKeyAndSignalsOnce()
    {
        const QTemporaryDir folder;
        Session session(folder);
        session.registry.start();
        session.registry.setShortcut(panel, superC);
        QCOMPARE(session.stored(panelKey).toString(), storedSuperC);
        session.changes.clear();

        session.registry.setShortcut(panel, std::nullopt);
        QVERIFY(!session.stored(panelKey).isValid());
        QCOMPARE(session.changes.count(), 1);
        session.registry.setShortcut(panel, std::nullopt);
        QCOMPARE(session.changes.count(), 1);
    }

    void storingTheSameShortcutBindsItAgainAndSignalsOnce()
    {
        const QTemporaryDir folder;
        Session session(folder);
        session.registry.start();
        session.changes.clear();
        session.desktop.journal.clear();
        session.registry.setShortcut(picker, altShiftC);
        QCOMPARE(session.desktop.journal, QStringList{QStringLiteral("bind activatePicker 8+2560")});
        QCOMPARE(session.changes.count(), 1);
    }

    void onlyTheNewShortcutActivatesItsAction()
    {
        const QTemporaryDir folder;
        Session session(folder);
        session.registry.start();
        session.registry.setShortcut(picker, superC);
        session.desktop.pressAndRelease(altShiftC);
        QCOMPARE(session.calls, QStringList());
        session.desktop.pressAndRelease(superC);
        QCOMPARE(session.calls.size(), 2);
    }

    void otherValuesMeanNoShortcutAndAreOverwritten_data()
    {
        QTest::addColumn<QVariant>("value");
        QTest::newRow("an empty object") << QVariant(QStringLiteral("{}"));
        QTest::newRow("no JSON") << QVariant(QStringLiteral("abc"));
        QTest::newRow("false") << QVariant(false);
        QTest::newRow("true") << QVariant(true);
        QTest::newRow("the text false") << QVariant(QStringLiteral("false"));
        QTest::newRow("a number") << QVariant(8);
        QTest::newRow("a list") << QVariant(QStringList{storedAltShiftC, storedSuperC});
        QTest::newRow("nothing") << QVariant(QString());
    }
    void otherValuesMeanNoShortcutAndAreOverwritten()
    {
        QFETCH(const QVariant, value);
        const QTemporaryDir folder;
        edit(folder, pickerKey, value);
        Session session(folder);
        session.registry.start();
        QCOMPARE(session.registry.shortcut(picker), std::optional<Shortcut>());
        QCOMPARE(session.registry.text(picker), QString());
        QCOMPARE(session.desktop.journal, QStringList());
        QCOMPARE(session.changes.count(), 0);
        session.registry.setShortcut(picker, std::nullopt);
        QCOMPARE(session.changes.count(), 0);

        session.registry.setShortcut(picker, altShiftC);
        QCOMPARE(session.stored(pickerKey).toString(), storedAltShiftC);
        QCOMPARE(session.changes.count(), 1);
    }

    void aSharedShortcutActivatesBothActionsInOrder()
    {
        const QTemporaryDir folder;
        Session session(folder);
        session.registry.start();
        session.registry.setShortcut(panel, altShiftC);
        session.desktop.pressAndRelease(altShiftC);
        QCOMPARE(session.calls,
                 (QStringList{QStringLiteral("activatePicker down"), QStringLiteral("openMainWindow down"),
                              QStringLiteral("activatePicker up"), QStringLiteral("openMainWindow up")}));
    }

    void aSharedShortcutStaysWithTheOtherAction_data()
    {
        QTest::addColumn<std::optional<Shortcut>>("shortcut");
        QTest::newRow("one action changes") << std::optional(superC);
        QTest::newRow("one action loses it") << std::optional<Shortcut>();
    }
    void aSharedShortcutStaysWithTheOtherAction()
    {
        QFETCH(const std::optional<Shortcut>, shortcut);
        const QTemporaryDir folder;
        Session session(folder);
        session.registry.start();
        session.registry.setShortcut(panel, altShiftC);
        session.registry.setShortcut(panel, shortcut);
        session.desktop.pressAndRelease(altShiftC);
        QCOMPARE(session.calls,
                 (QStringList{QStringLiteral("activatePicker down"), QStringLiteral("activatePicker up")}));
    }

    void anEditOfTheFileFromOutsideIsBound()
    {
        const QTemporaryDir folder;
        Session session(folder);
        session.registry.start();
        session.changes.clear();
        edit(folder, pickerKey, storedSuperC);
        QTRY_COMPARE(session.registry.shortcut(picker), std::optional(superC));
        QCOMPARE(session.changes.count(), 1);
        QCOMPARE(session.changedAction(0), picker);
        session.desktop.pressAndRelease(altShiftC);
        QCOMPARE(session.calls, QStringList());
        session.desktop.pressAndRelease(superC);
        QCOMPARE(session.calls.size(), 2);
    }

    void whilePausedNothingIsActivated()
    {
        const QTemporaryDir folder;
        Session session(folder);
        session.registry.start();
        session.registry.setPaused(true);
        QVERIFY(session.registry.isPaused());
        session.desktop.pressAndRelease(altShiftC);
        QCOMPARE(session.calls, QStringList());

        session.registry.setPaused(false);
        session.desktop.pressAndRelease(altShiftC);
        QCOMPARE(session.calls,
                 (QStringList{QStringLiteral("activatePicker down"), QStringLiteral("activatePicker up")}));
    }

    void idsOfOtherProgramsActivateNothing()
    {
        const QTemporaryDir folder;
        Session session(folder);
        session.registry.start();
        Q_EMIT session.desktop.activated(QStringLiteral("fromAnotherVersion"));
        Q_EMIT session.desktop.deactivated(QString());
        QCOMPARE(session.calls, QStringList());
    }

    void aSlotMayChangeTheShortcut()
    {
        const QTemporaryDir folder;
        Session session(folder);
        session.registry.start();
        QObject::connect(&session.registry, &ShortcutRegistry::activated, &session.registry,
                         [&session] { session.registry.setShortcut(picker, superC); });
        session.desktop.press(altShiftC);
        session.desktop.press(altShiftC);
        QCOMPARE(session.calls, QStringList{QStringLiteral("activatePicker down")});
    }

    void aRefusedShortcutStaysStoredAndPrintsOneLine()
    {
        const QTemporaryDir folder;
        Session session(folder);
        session.desktop.taken = {altShiftC};
        const auto output = outputOf([&] {
            session.registry.start();
            session.registry.setShortcut(panel, altShiftC);
        });
        QCOMPARE(output, QByteArray("Error registering hotkey ⌥⇧C: -9878\n"));
        QCOMPARE(session.stored(pickerKey).toString(), storedAltShiftC);
        QCOMPARE(session.registry.text(picker), QStringLiteral("⌥⇧C"));

        session.registry.setShortcut(panel, superC);
        session.desktop.press(superC);
        QCOMPARE(session.calls, QStringList{QStringLiteral("openMainWindow down")});
    }

    void aShortcutRefusedLaterPrintsItsLineInTheLayoutOfThatMoment()
    {
        const QTemporaryDir folder;
        Session session(folder);
        session.registry.start();
        session.layout.characters[8] = QStringLiteral("j");
        const auto output = outputOf([&] { session.desktop.refuse(QStringLiteral("activatePicker")); });
        QCOMPARE(output, QByteArray("Error registering hotkey ⌥⇧J: -9878\n"));
    }

    void storingARefusedShortcutAgainPrintsTheLineAgain()
    {
        const QTemporaryDir folder;
        Session session(folder);
        session.registry.start();
        session.desktop.taken = {superC};
        const auto output = outputOf([&] {
            session.registry.setShortcut(picker, superC);
            session.registry.setShortcut(picker, superC);
        });
        QCOMPARE(output,
                 QByteArray("Error registering hotkey ⌘C: -9878\nError registering hotkey ⌘C: -9878\n"));
    }

    void aRefusedShortcutIsBoundWhenItsKeysBecomeFree()
    {
        const QTemporaryDir folder;
        Session session(folder);
        session.desktop.taken = {altShiftC};
        const auto output = outputOf([&] { session.registry.start(); });
        QCOMPARE(session.registry.refusal(picker), std::optional(ShortcutRefusal::Reason::Taken));
        QCOMPARE(session.registry.refusal(panel), std::nullopt);
        QSignalSpy refusals(&session.registry, &ShortcutRegistry::refusalChanged);

        session.desktop.taken.clear();
        session.registry.retryRefused();
        QCOMPARE(session.registry.refusal(picker), std::nullopt);
        QCOMPARE(refusals.count(), 1);
        session.desktop.press(altShiftC);
        QCOMPARE(session.calls, QStringList{QStringLiteral("activatePicker down")});
    }

    void anotherShortcutIsNotRefusedAnyMore()
    {
        const QTemporaryDir folder;
        Session session(folder);
        session.desktop.taken = {altShiftC};
        const auto output = outputOf([&] { session.registry.start(); });
        session.registry.setShortcut(picker, superC);
        QCOMPARE(session.registry.refusal(picker), std::nullopt);
        session.registry.setShortcut(picker, altShiftC);
        QCOMPARE(session.registry.refusal(picker), std::optional(ShortcutRefusal::Reason::Taken));
        session.registry.setShortcut(picker, std::nullopt);
        QCOMPARE(session.registry.refusal(picker), std::nullopt);
    }

    void theTextHasWordsWhenTheUserPrefersThem()
    {
        const QTemporaryDir folder;
        Session session(folder);
        session.registry.start();
        const QSignalSpy textChanges(&session.registry, &ShortcutRegistry::textsChanged);
        session.preferences.setKeyNames(KeyNames::Words);
        QCOMPARE(textChanges.count(), 1);
        QCOMPARE(session.registry.text(picker), QStringLiteral("Alt+Shift+C"));
        QCOMPARE(session.registry.words(picker), QStringLiteral("Alt+Shift+C"));
        session.preferences.setKeyNames(KeyNames::Signs);
        QCOMPARE(session.registry.text(picker), QStringLiteral("⌥⇧C"));
        QCOMPARE(session.registry.words(picker), QStringLiteral("Alt+Shift+C"));
        QCOMPARE(session.registry.words(panel), QString());
    }

    void theTextHasWordsWhenTheFontsLackItsSigns()
    {
        const QTemporaryDir folder;
        Session session(folder);
        ShortcutRegistry registry(session.desktop, session.layout, session.preferences,
                                  [](const QString& text) { return !text.contains(u'⌥'); });
        registry.setShortcut(picker, altShiftC);
        QCOMPARE(registry.text(picker), QStringLiteral("Alt+Shift+C"));
        registry.setShortcut(picker, superC);
        QCOMPARE(registry.text(picker), QStringLiteral("⌘C"));
    }

    void aShortcutOfASystemWideFileCanBeRemoved()
    {
        const QTemporaryDir user;
        const QTemporaryDir system;
        QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, user.path());
        QSettings::setPath(QSettings::NativeFormat, QSettings::SystemScope, system.path());
        {
            QSettings file(system.filePath(QStringLiteral("Tintwick/Tintwick.conf")),
                           QSettings::NativeFormat);
            file.setValue(panelKey, storedSuperC);
        }
        Preferences preferences;
        ScriptedGlobalShortcuts desktop;
        const ScriptedKeyboardLayout layout;
        ShortcutRegistry registry(desktop, layout, preferences);
        registry.start();
        QCOMPARE(registry.shortcut(panel), std::optional(superC));
        registry.setShortcut(panel, std::nullopt);
        QCOMPARE(registry.shortcut(panel), std::nullopt);
        QVERIFY(desktop.journal.contains(QStringLiteral("unbind openMainWindow")));
        QCOMPARE(Preferences().shortcutText(QStringLiteral("openMainWindow")),
                 std::optional(QStringLiteral("false")));
    }

    void combinationsOfOtherProgramsAreTaken()
    {
        const QTemporaryDir folder;
        Session session(folder);
        session.desktop.taken = {superC};
        QVERIFY(session.registry.isTaken(superC));
        QVERIFY(!session.registry.isTaken(altShiftC));
    }

    void theTextFollowsTheKeyboardLayout()
    {
        const QTemporaryDir folder;
        Session session(folder);
        session.registry.start();
        QSignalSpy layoutChanges(&session.registry, &ShortcutRegistry::textsChanged);
        QCOMPARE(session.registry.text(picker), QStringLiteral("⌥⇧C"));
        session.layout.characters[8] = QStringLiteral("j");
        Q_EMIT session.layout.changed();
        QCOMPARE(layoutChanges.count(), 1);
        QCOMPARE(session.registry.text(picker), QStringLiteral("⌥⇧J"));
    }

    void theLineForTheDesktopStartsThisProgram()
    {
        const QTemporaryDir folder;
        Session session(folder);
        session.registry.start();
        QVERIFY(!session.registry.configurationLine(picker));
        session.desktop.choice = GlobalShortcuts::KeyChoice::None;
        session.desktop.line = [](const QStringList& command, const Shortcut& keys) {
            return ConfigurationLine{QStringLiteral("%1: %2").arg(keys.keyCode).arg(command.join(u'|')), {}};
        };
        const QString path = QCoreApplication::applicationFilePath();
        QCOMPARE(session.registry.configurationLine(picker)->text, QStringLiteral("8: %1|pick").arg(path));
        // Without a combination the line has an example.
        QCOMPARE(session.registry.configurationLine(panel)->text, QStringLiteral("35: %1|panel").arg(path));
        session.registry.setShortcut(panel, altShiftC);
        QCOMPARE(session.registry.configurationLine(panel)->text, QStringLiteral("8: %1|panel").arg(path));
    }

    void aProgramThatTheShellFindsIsNamedWithoutItsPath()
    {
        const QTemporaryDir folder;
        Session session(folder);
        session.desktop.choice = GlobalShortcuts::KeyChoice::None;
        session.desktop.line = [](const QStringList& command, const Shortcut&) {
            return ConfigurationLine{command.constFirst(), {}};
        };
        const QByteArray before = qgetenv("PATH");
        qputenv("PATH", QCoreApplication::applicationDirPath().toUtf8());
        const auto found = session.registry.configurationLine(picker);
        // Another program of the same name is not this one.
        QVERIFY(QFile::copy(QStringLiteral("/bin/true"),
                            folder.filePath(QStringLiteral("ShortcutRegistryTest"))));
        qputenv("PATH", folder.path().toUtf8());
        const auto other = session.registry.configurationLine(picker);
        qputenv("PATH", before);
        QCOMPARE(found->text, QStringLiteral("ShortcutRegistryTest"));
        QCOMPARE(other->text, QCoreApplication::applicationFilePath());
    }

    void whereTheDesktopChoosesTheKeysTheirTextIsShown()
    {
        const QTemporaryDir folder;
        Session session(folder);
        session.desktop.choice = GlobalShortcuts::KeyChoice::DesktopDialog;
        session.registry.start();
        QCOMPARE(session.desktop.journal, (QStringList{QStringLiteral("bind activatePicker 8+2560"),
                                                       QStringLiteral("bind openMainWindow")}));
        QCOMPARE(session.registry.text(picker), QString());
        session.changes.clear();
        Q_EMIT session.desktop.changed(QStringLiteral("openMainWindow"), QStringLiteral("Meta+T"));
        Q_EMIT session.desktop.changed(QStringLiteral("openMainWindow"), QStringLiteral("Meta+T"));
        QCOMPARE(session.changes.count(), 1);
        QCOMPARE(session.changedAction(0), panel);
        QCOMPARE(session.registry.text(panel), QStringLiteral("Meta+T"));
        Q_EMIT session.desktop.activated(QStringLiteral("openMainWindow"));
        QCOMPARE(session.calls, QStringList{QStringLiteral("openMainWindow down")});
        session.registry.configure(QStringLiteral("x11:1a0"));
        QCOMPARE(session.desktop.dialogs, QStringList{QStringLiteral("x11:1a0")});
    }
};

} // namespace tintwick::test

QTEST_GUILESS_MAIN(tintwick::test::ShortcutRegistryTest)
#include "ShortcutRegistryTest.moc"
