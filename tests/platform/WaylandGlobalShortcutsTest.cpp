#include "WaylandGlobalShortcuts.h"
#include "KeyCode.h"
#include "SessionBus.h"
#include "WaylandKeyboardLayout.h"
#include "platform/ScriptedShortcutsPortal.h"
#include "support/PrivateBus.h"

#include <QDBusConnectionInterface>
#include <QDBusServiceWatcher>
#include <QDeadlineTimer>
#include <QGuiApplication>
#include <QSignalSpy>
#include <QTest>

#include <chrono>
#include <memory>
#include <optional>

namespace tintwick::test {

using namespace Qt::StringLiterals;

namespace {

const QString serviceName = u"org.freedesktop.portal.Desktop"_s;
const QString picker = u"activatePicker"_s;
const QString panel = u"openMainWindow"_s;
const QString bothShortcuts =
    u" activatePicker [Activate Picker] [ALT+SHIFT+c] openMainWindow [Open Main Window] []"_s;
constexpr Shortcut altShiftC{keycode::c, modifier::alt | modifier::shift};

/// Shorter than the 25 seconds after which a call that blocks gives up.
constexpr std::chrono::seconds endOfPatience{20};

using KeyChoice = GlobalShortcuts::KeyChoice;

/// The program as far as its shortcuts, and what it hears of the desktop.
struct Program
{
    explicit Program(ConfigurationFormat format = ConfigurationFormat::Unknown)
        : shortcuts(layout, format)
    {
        QObject::connect(&shortcuts, &GlobalShortcuts::changed, &shortcuts,
                         [this](const QString& id, const QString& text) { texts[id] = text; });
        QObject::connect(&shortcuts, &GlobalShortcuts::activated, &shortcuts,
                         [this](const QString& id) { keys << id + u" down"_s; });
        QObject::connect(&shortcuts, &GlobalShortcuts::deactivated, &shortcuts,
                         [this](const QString& id) { keys << id + u" up"_s; });
        shortcuts.bind(picker, u"Activate Picker"_s, altShiftC);
        shortcuts.bind(panel, u"Open Main Window"_s, std::nullopt);
    }

    WaylandKeyboardLayout layout;
    WaylandGlobalShortcuts shortcuts;
    QMap<QString, QString> texts;
    QStringList keys;
};

/// Whether the bus answers a question in the usual time; none without any answer.
std::optional<bool> busAnswers()
{
    std::optional<bool> answer;
    QObject context;
    askSessionBus(context, [&answer](bool works) { answer = works; });
    return QTest::qWaitFor([&answer] { return answer.has_value(); }) ? answer : std::nullopt;
}

} // namespace

class WaylandGlobalShortcutsTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();
    void cleanupTestCase();

    void theApplicationIdIsRegisteredBeforeAllOtherCalls();
    void aPortalThatBindsWithTheSessionOpensItsDialogOnlyOnRequest();
    void withoutARegistryThePortalIsUsed();
    void theUserMayGiveOtherKeysThanThosePreferred();
    void keysOfEarlierSessionsAreShownWhenTheUserCancels();
    void aPortalThatListsNothingIsUsed();
    void withoutThePortalTheUserBindsKeys();
    void aRefusedSessionLeavesTheKeysToTheUser();
    void pressesAndReleasesAreReported();
    void keysThatTheUserChangesLaterAreReported();
    void theDialogOpensForTheWindow();
    void whereThePortalCannotOpenTheDialogANewSessionDoes_data();
    void whereThePortalCannotOpenTheDialogANewSessionDoes();
    void aPortalThatRestartsBindsAgain();
    void aPortalThatComesBackWithoutShortcutsLeavesTheKeysToTheUser();
    void aPortalThatStartsLaterIsUsed();
    void aClosedSessionHasNoKeysUntilTheUserAsks();
    void aShortcutThatIsAddedOrRemovedMakesANewSession();
    void whereAFileNamesTheKeysThePortalCountsOnceItHasSome();
    void aSilentPortalHoldsUpNothing();
    void aSilentBusHoldsUpNothingAndIsUsedLater();
    void theEndClosesTheSession();

private:
    void startPortal() { QVERIFY(QDBusConnection(u"portal"_s).registerService(serviceName)); }

    [[nodiscard]] QString lastCall() const { return m_portal->journal.value(m_portal->journal.size() - 1); }

    std::unique_ptr<PrivateBus> m_bus;
    std::unique_ptr<ScriptedShortcutsPortal> m_portal;
};

void WaylandGlobalShortcutsTest::initTestCase()
{
    QGuiApplication::setDesktopFileName(u"org.tintwick.Tintwick"_s);
    m_bus = std::make_unique<PrivateBus>();
}

void WaylandGlobalShortcutsTest::init()
{
    const QDBusConnection bus = PrivateBus::connectAs(u"portal"_s);
    QVERIFY(bus.isConnected());
    m_portal = std::make_unique<ScriptedShortcutsPortal>(bus);
    m_portal->keys = {{picker, u"Alt+Shift+C"_s}};
}

void WaylandGlobalShortcutsTest::cleanup()
{
    // What the program knows of this portal must not reach the next test.
    const QDBusServiceWatcher watcher(serviceName, QDBusConnection::sessionBus());
    QSignalSpy gone(&watcher, &QDBusServiceWatcher::serviceUnregistered);
    const bool wasThere = QDBusConnection(u"portal"_s).unregisterService(serviceName);
    QTRY_VERIFY(!wasThere || gone.count() > 0);
    QDBusConnection::disconnectFromBus(u"portal"_s);
    m_portal.reset();
}

void WaylandGlobalShortcutsTest::cleanupTestCase()
{
    m_bus.reset();
}

void WaylandGlobalShortcutsTest::theApplicationIdIsRegisteredBeforeAllOtherCalls()
{
    // As GNOME 48 with a newer portal.
    m_portal->hasRegistry = true;
    m_portal->needsApplicationId = true;
    m_portal->needsDescriptions = true;
    startPortal();
    const Program program;
    QTRY_COMPARE(program.texts.value(picker), u"Alt+Shift+C"_s);
    QCOMPARE(program.texts.value(panel), QString());
    QCOMPARE(program.shortcuts.keyChoice(), KeyChoice::DesktopDialog);
    QCOMPARE(m_portal->journal,
             (QStringList{u"Register org.tintwick.Tintwick"_s, u"CreateSession"_s + bothShortcuts,
                          u"ListShortcuts"_s, u"BindShortcuts "_s + bothShortcuts}));
}

void WaylandGlobalShortcutsTest::aPortalThatBindsWithTheSessionOpensItsDialogOnlyOnRequest()
{
    // As KDE 5.27, where BindShortcuts opens the settings.
    m_portal->bindsOfSessionOnly = true;
    startPortal();
    Program program;
    QTRY_COMPARE(program.texts.value(picker), u"Alt+Shift+C"_s);
    m_portal->press(picker);
    QTRY_COMPARE(program.keys, QStringList{u"activatePicker down"_s});
    QCOMPARE(m_portal->journal, QStringList{u"CreateSession"_s + bothShortcuts});
    program.shortcuts.configure(u"wayland:12"_s);
    QTRY_COMPARE(lastCall(), u"BindShortcuts wayland:12"_s + bothShortcuts);
}

void WaylandGlobalShortcutsTest::withoutARegistryThePortalIsUsed()
{
    startPortal();
    const Program program;
    QTRY_COMPARE(program.texts.value(picker), u"Alt+Shift+C"_s);
    QCOMPARE(m_portal->journal.first(), u"CreateSession"_s + bothShortcuts);
}

void WaylandGlobalShortcutsTest::theUserMayGiveOtherKeysThanThosePreferred()
{
    m_portal->keys = {{picker, u"Meta+P"_s}, {panel, u"F9"_s}};
    startPortal();
    const Program program;
    QTRY_COMPARE(program.texts, (QMap<QString, QString>{{picker, u"Meta+P"_s}, {panel, u"F9"_s}}));
}

void WaylandGlobalShortcutsTest::keysOfEarlierSessionsAreShownWhenTheUserCancels()
{
    m_portal->knownKeys = {{picker, u"Meta+P"_s}, {u"ofAnotherVersion"_s, u"F1"_s}};
    m_portal->answer = ScriptedShortcutsPortal::Answer::Cancelled;
    startPortal();
    const Program program;
    QTRY_COMPARE(lastCall(), u"BindShortcuts "_s + bothShortcuts);
    QTRY_COMPARE(program.texts, (QMap<QString, QString>{{picker, u"Meta+P"_s}, {panel, {}}}));
    QCOMPARE(program.shortcuts.keyChoice(), KeyChoice::DesktopDialog);
}

void WaylandGlobalShortcutsTest::aPortalThatListsNothingIsUsed()
{
    m_portal->listsShortcuts = false;
    startPortal();
    const Program program;
    QTRY_COMPARE(program.texts.value(picker), u"Alt+Shift+C"_s);
}

void WaylandGlobalShortcutsTest::withoutThePortalTheUserBindsKeys()
{
    m_portal->hasShortcuts = false;
    startPortal();
    const Program program(ConfigurationFormat::Sway);
    QTRY_VERIFY(program.texts.contains(picker));
    QCOMPARE(program.texts.value(picker), QString());
    QCOMPARE(program.shortcuts.keyChoice(), KeyChoice::None);
    const auto line = program.shortcuts.configurationLine({u"tintwick"_s, u"pick"_s}, altShiftC);
    QVERIFY(line);
    QCOMPARE(line->text, u"bindsym Mod1+Shift+c exec tintwick pick"_s);
}

void WaylandGlobalShortcutsTest::aRefusedSessionLeavesTheKeysToTheUser()
{
    m_portal->needsApplicationId = true;
    startPortal();
    Program program(ConfigurationFormat::Gnome);
    QTRY_COMPARE(m_portal->journal, QStringList{u"CreateSession"_s + bothShortcuts});
    QTRY_VERIFY(program.texts.contains(picker));
    QCOMPARE(program.shortcuts.keyChoice(), KeyChoice::None);
    QCOMPARE(program.shortcuts.configurationLine({u"tintwick"_s, u"pick"_s}, altShiftC)->text,
             u"tintwick pick"_s);
    const int callsBefore = m_portal->calls;
    program.shortcuts.configure({});
    // A new session would ask the bus first, and the portal when the bus has answered.
    QCOMPARE(busAnswers(), std::optional(true));
    QCOMPARE(busAnswers(), std::optional(true));
    QCOMPARE(m_portal->calls, callsBefore);
}

void WaylandGlobalShortcutsTest::pressesAndReleasesAreReported()
{
    startPortal();
    const Program program;
    QTRY_COMPARE(program.texts.value(picker), u"Alt+Shift+C"_s);
    m_portal->sendKey(u"Activated"_s, u"/org/freedesktop/portal/desktop/session/of/another"_s, picker);
    m_portal->press(picker);
    m_portal->release(picker);
    m_portal->press(panel);
    QTRY_COMPARE(program.keys,
                 (QStringList{u"activatePicker down"_s, u"activatePicker up"_s, u"openMainWindow down"_s}));
}

void WaylandGlobalShortcutsTest::keysThatTheUserChangesLaterAreReported()
{
    startPortal();
    const Program program;
    QTRY_COMPARE(program.texts.value(picker), u"Alt+Shift+C"_s);
    m_portal->change(panel, u"Meta+T"_s);
    QTRY_COMPARE(program.texts, (QMap<QString, QString>{{picker, u"Alt+Shift+C"_s}, {panel, u"Meta+T"_s}}));
}

void WaylandGlobalShortcutsTest::theDialogOpensForTheWindow()
{
    m_portal->version = 2;
    startPortal();
    Program program;
    QTRY_COMPARE(program.texts.value(picker), u"Alt+Shift+C"_s);
    program.shortcuts.configure(u"wayland:12"_s);
    QTRY_COMPARE(lastCall(), u"ConfigureShortcuts wayland:12"_s);
}

void WaylandGlobalShortcutsTest::whereThePortalCannotOpenTheDialogANewSessionDoes_data()
{
    QTest::addColumn<unsigned>("version");
    QTest::newRow("without the call") << 1U;
    QTest::newRow("with a call that the desktop refuses") << 2U;
}

void WaylandGlobalShortcutsTest::whereThePortalCannotOpenTheDialogANewSessionDoes()
{
    QFETCH(const unsigned, version);
    m_portal->version = version;
    m_portal->canConfigure = false;
    startPortal();
    Program program;
    QTRY_COMPARE(program.texts.value(picker), u"Alt+Shift+C"_s);
    m_portal->journal.clear();
    m_portal->keys = {{picker, u"Meta+P"_s}};
    program.shortcuts.configure(u"wayland:12"_s);
    QTRY_COMPARE(program.texts.value(picker), u"Meta+P"_s);
    m_portal->journal.removeAll(u"ConfigureShortcuts wayland:12"_s);
    QCOMPARE(m_portal->journal,
             (QStringList{u"Close 1/tintwick"_s, u"CreateSession"_s + bothShortcuts, u"ListShortcuts"_s,
                          u"BindShortcuts wayland:12"_s + bothShortcuts}));
    m_portal->press(picker);
    QTRY_COMPARE(program.keys, QStringList{u"activatePicker down"_s});
}

void WaylandGlobalShortcutsTest::aPortalThatRestartsBindsAgain()
{
    m_portal->hasRegistry = true;
    startPortal();
    const Program program;
    QTRY_COMPARE(program.texts.value(picker), u"Alt+Shift+C"_s);
    m_portal->journal.clear();
    QVERIFY(QDBusConnection(u"portal"_s).unregisterService(serviceName));
    QTRY_COMPARE(program.texts.value(picker), QString());
    QCOMPARE(program.shortcuts.keyChoice(), KeyChoice::DesktopDialog);
    startPortal();
    QTRY_COMPARE(program.texts.value(picker), u"Alt+Shift+C"_s);
    QCOMPARE(m_portal->journal.value(0), u"Register org.tintwick.Tintwick"_s);
    QCOMPARE(m_portal->journal.count(u"BindShortcuts "_s + bothShortcuts), 1);
}

void WaylandGlobalShortcutsTest::aPortalThatComesBackWithoutShortcutsLeavesTheKeysToTheUser()
{
    startPortal();
    const Program program;
    QTRY_COMPARE(program.texts.value(picker), u"Alt+Shift+C"_s);
    m_portal->hasShortcuts = false;
    QVERIFY(QDBusConnection(u"portal"_s).unregisterService(serviceName));
    QTRY_COMPARE(program.texts.value(picker), QString());
    startPortal();
    QTRY_COMPARE(program.shortcuts.keyChoice(), KeyChoice::None);
    QVERIFY(program.shortcuts.configurationLine({u"tintwick"_s, u"pick"_s}, altShiftC));
}

void WaylandGlobalShortcutsTest::aPortalThatStartsLaterIsUsed()
{
    const Program program;
    QTRY_VERIFY(program.texts.contains(picker));
    QCOMPARE(program.shortcuts.keyChoice(), KeyChoice::None);
    QSignalSpy choice(&program.shortcuts, &GlobalShortcuts::keyChoiceChanged);
    startPortal();
    QTRY_COMPARE(program.texts.value(picker), u"Alt+Shift+C"_s);
    QCOMPARE(program.shortcuts.keyChoice(), KeyChoice::DesktopDialog);
    QCOMPARE(choice.count(), 1);
    QCOMPARE(m_portal->journal.count(u"BindShortcuts "_s + bothShortcuts), 1);
}

void WaylandGlobalShortcutsTest::aClosedSessionHasNoKeysUntilTheUserAsks()
{
    startPortal();
    Program program;
    QTRY_COMPARE(program.texts.value(picker), u"Alt+Shift+C"_s);
    m_portal->closeSession();
    QTRY_COMPARE(program.texts.value(picker), QString());
    QCOMPARE(program.shortcuts.keyChoice(), KeyChoice::DesktopDialog);
    program.shortcuts.configure({});
    QTRY_COMPARE(program.texts.value(picker), u"Alt+Shift+C"_s);
}

void WaylandGlobalShortcutsTest::aShortcutThatIsAddedOrRemovedMakesANewSession()
{
    startPortal();
    Program program;
    QTRY_COMPARE(program.texts.value(picker), u"Alt+Shift+C"_s);
    // The user's choice stays when the program prefers other keys.
    program.shortcuts.bind(picker, u"Activate Picker"_s, Shortcut{keycode::p, modifier::super});
    m_portal->journal.clear();
    program.shortcuts.unbind(panel);
    QTRY_COMPARE(
        m_portal->journal,
        (QStringList{u"Close 1/tintwick"_s, u"CreateSession activatePicker [Activate Picker] [LOGO+p]"_s,
                     u"ListShortcuts"_s, u"BindShortcuts  activatePicker [Activate Picker] [LOGO+p]"_s}));
    m_portal->journal.clear();
    program.shortcuts.unbind(picker);
    QTRY_COMPARE(lastCall(), u"Close 2/tintwick"_s);
    // The answer to this call comes after that to a session without shortcuts, if there was one.
    QTRY_VERIFY(QDBusConnection::sessionBus().interface()->isServiceRegistered(serviceName));
    program.shortcuts.bind(panel, u"Open Main Window"_s, std::nullopt);
    QTRY_COMPARE(lastCall(), u"BindShortcuts  openMainWindow [Open Main Window] []"_s);
    QCOMPARE(m_portal->journal.filter(u"CreateSession"_s).size(), 1);
}

void WaylandGlobalShortcutsTest::whereAFileNamesTheKeysThePortalCountsOnceItHasSome()
{
    m_portal->keys.clear();
    startPortal();
    const Program program(ConfigurationFormat::Hyprland);
    QTRY_COMPARE(lastCall(), u"BindShortcuts "_s + bothShortcuts);
    m_portal->press(picker);
    QTRY_COMPARE(program.keys, QStringList{u"activatePicker down"_s});
    QCOMPARE(program.shortcuts.keyChoice(), KeyChoice::None);
    m_portal->change(picker, u"SUPER+C"_s);
    QTRY_COMPARE(program.texts.value(picker), u"SUPER+C"_s);
    QCOMPARE(program.shortcuts.keyChoice(), KeyChoice::DesktopDialog);
}

void WaylandGlobalShortcutsTest::aSilentPortalHoldsUpNothing()
{
    m_portal->replies = false;
    startPortal();
    const QDeadlineTimer timeout(endOfPatience);
    {
        const Program program;
        QTRY_VERIFY(m_portal->calls > 0);
        QCOMPARE(program.shortcuts.keyChoice(), KeyChoice::None);
    }
    QVERIFY(!timeout.hasExpired());
}

void WaylandGlobalShortcutsTest::aSilentBusHoldsUpNothingAndIsUsedLater()
{
    startPortal();
    const QDeadlineTimer timeout(endOfPatience);
    m_bus->freeze();
    const Program program;
    // The shortcuts wait longer than others.
    QCOMPARE(busAnswers(), std::optional(false));
    m_bus->goOn();
    QTRY_COMPARE(program.texts.value(picker), u"Alt+Shift+C"_s);
    QVERIFY(!timeout.hasExpired());
}

void WaylandGlobalShortcutsTest::theEndClosesTheSession()
{
    startPortal();
    {
        const Program program;
        QTRY_COMPARE(program.texts.value(picker), u"Alt+Shift+C"_s);
    }
    QTRY_COMPARE(lastCall(), u"Close 1/tintwick"_s);
}

} // namespace tintwick::test

QTEST_GUILESS_MAIN(tintwick::test::WaylandGlobalShortcutsTest)
#include "WaylandGlobalShortcutsTest.moc"
