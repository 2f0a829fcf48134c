#include "X11GlobalShortcuts.h"
#include "support/KeyboardInput.h"
#include "support/PrivateDesktopMain.h"

#include <QProcess>
#include <QSignalSpy>
#include <QTest>

#include <xcb/xinput.h>

#include <algorithm>
#include <chrono>
#include <initializer_list>

namespace tintwick::test {

namespace {

constexpr int keyC = 8;
constexpr int keyF12 = 111;
constexpr int altShift = 0xA00;
constexpr xcb_keycode_t keycodeC = KEY_C + 8;
constexpr std::uint16_t lock = 0x02, mod1 = 0x08, mod2 = 0x10, mod3 = 0x20, shift = 0x01;

/// A client of the server that binds shortcuts.
struct Program
{
    std::unique_ptr<XcbConnection> connection = XcbConnection::open();
    X11GlobalShortcuts shortcuts;
    /// "<id> down" and "<id> up" in the order reported.
    QStringList reports;
    /// The ids that got their keys.
    QStringList bound;
    std::optional<ShortcutRefusal> refusal;

    explicit Program(std::chrono::milliseconds retryInterval = std::chrono::hours(1))
        : shortcuts(*connection, retryInterval)
    {
        QObject::connect(&shortcuts, &GlobalShortcuts::bound, &shortcuts,
                         [this](const QString& id) { bound << id; });
        QObject::connect(&shortcuts, &GlobalShortcuts::activated, &shortcuts,
                         [this](const QString& id) { reports << id + QStringLiteral(" down"); });
        QObject::connect(&shortcuts, &GlobalShortcuts::deactivated, &shortcuts,
                         [this](const QString& id) { reports << id + QStringLiteral(" up"); });
        QObject::connect(&shortcuts, &GlobalShortcuts::refused, &shortcuts,
                         [this](const QString&, const ShortcutRefusal& reason) { refusal = reason; });
    }

    /// The code of the refusal, 0 when the combination is bound.
    [[nodiscard]] int take(int keyCode, int modifiers, int id)
    {
        refusal.reset();
        shortcuts.bind(QString::number(id), QString(), Shortcut{keyCode, modifiers});
        return refusal ? refusal->code.toInt() : 0;
    }
    /// All reports so far. Taps F12, which has the id 99 and whose release is reported last.
    [[nodiscard]] QStringList reportsUntilNow(KeyboardInput& keyboard)
    {
        const int refused = take(keyF12, 0, 99);
        [&] { QCOMPARE(refused, 0); }();
        keyboard.tap(KEY_F12);
        const auto end = QStringLiteral("99 up");
        [&] { QTRY_VERIFY(reports.contains(end)); }();
        shortcuts.unbind(QStringLiteral("99"));
        auto result = std::exchange(reports, {});
        result.removeAll(QStringLiteral("99 down"));
        result.removeAll(end);
        return result;
    }
};

/// Counts the presses that the server sends for a held key.
class RepeatCounter final : public XcbConnection::Sink
{
public:
    explicit RepeatCounter(XcbConnection& connection)
        : m_subscription(connection.subscribe(*this))
    {
    }
    [[nodiscard]] int presses() const { return m_presses; }

private:
    void handleEvent(const xcb_generic_event_t& event) override
    {
        if (event.response_type == XCB_KEY_PRESS) {
            ++m_presses;
        }
    }

    int m_presses = 0;
    XcbConnection::Subscription m_subscription;
};

void run(const QString& program, const QStringList& arguments)
{
    QCOMPARE(QProcess::execute(program, arguments), 0);
}

void setKeymap(const QString& layouts, const QString& variants = {}, const QString& options = {})
{
    run(QStringLiteral("setxkbmap"),
        {QStringLiteral("-layout"), layouts, QStringLiteral("-variant"), variants, QStringLiteral("-option"),
         QString(), QStringLiteral("-option"), options});
}

enum class GrabKind { Core, InputExtension };

/// Grabs exactly this combination for another client. False when the server refuses the grab.
[[nodiscard]] bool grabByOther(DesktopConnection& other, std::uint16_t modifiers,
                               GrabKind kind = GrabKind::Core)
{
    auto* const c = other.get();
    if (kind == GrabKind::InputExtension) {
        const std::uint32_t events = XCB_INPUT_XI_EVENT_MASK_KEY_PRESS;
        const std::uint32_t modifier = modifiers;
        const ServerReply<xcb_input_xi_query_version_reply_t> version(
            xcb_input_xi_query_version_reply(c, xcb_input_xi_query_version(c, 2, 2), nullptr));
        const ServerReply<xcb_input_xi_passive_grab_device_reply_t> reply(
            xcb_input_xi_passive_grab_device_reply(
                c,
                xcb_input_xi_passive_grab_device(
                    c, XCB_CURRENT_TIME, other.root(), XCB_CURSOR_NONE, keycodeC, XCB_INPUT_DEVICE_ALL_MASTER,
                    1, 1, XCB_INPUT_GRAB_TYPE_KEYCODE, XCB_INPUT_GRAB_MODE_22_ASYNC,
                    XCB_INPUT_GRAB_MODE_22_ASYNC, XCB_INPUT_GRAB_OWNER_NO_OWNER, &events, &modifier),
                nullptr));
        return reply && reply->num_modifiers == 0;
    }
    const ServerReply<xcb_generic_error_t> error(
        xcb_request_check(c, xcb_grab_key_checked(c, 0, other.root(), modifiers, keycodeC,
                                                  XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC)));
    return !error;
}

} // namespace

class X11GlobalShortcutsTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        // Short auto-repeat times, so that no test waits long.
        run(QStringLiteral("xset"),
            {QStringLiteral("r"), QStringLiteral("rate"), QStringLiteral("60"), QStringLiteral("100")});
    }
    void cleanup() { setKeymap(QStringLiteral("us")); }

    void aPressAndItsReleaseAreReportedOnceUnderEveryLock_data()
    {
        QTest::addColumn<QList<int>>("lockKeys");
        QTest::addColumn<int>("locked");
        QTest::newRow("nothing") << QList<int>{} << 0;
        QTest::newRow("Caps Lock") << QList<int>{KEY_CAPSLOCK} << int(lock);
        QTest::newRow("Num Lock") << QList<int>{KEY_NUMLOCK} << int(mod2);
        QTest::newRow("Caps Lock and Num Lock") << QList<int>{KEY_CAPSLOCK, KEY_NUMLOCK} << int(lock | mod2);
    }
    void aPressAndItsReleaseAreReportedOnceUnderEveryLock()
    {
        QFETCH(const QList<int>, lockKeys);
        QFETCH(const int, locked);
        Program program;
        KeyboardInput keyboard;
        for (const int key : lockKeys) {
            keyboard.tap(key);
        }
        QCOMPARE(int(keyboard.modifiers()), locked);
        QCOMPARE(program.take(keyC, altShift, 1), 0);
        keyboard.chord({KEY_LEFTALT, KEY_LEFTSHIFT, KEY_C});
        QCOMPARE(program.reportsUntilNow(keyboard),
                 (QStringList{QStringLiteral("1 down"), QStringLiteral("1 up")}));
    }

    void otherCombinationsAreNotReported_data()
    {
        QTest::addColumn<QList<int>>("keys");
        QTest::newRow("no modifier") << QList<int>{KEY_C};
        QTest::newRow("one modifier less") << QList<int>{KEY_LEFTALT, KEY_C};
        QTest::newRow("one modifier more") << QList<int>{KEY_LEFTALT, KEY_LEFTSHIFT, KEY_LEFTCTRL, KEY_C};
        QTest::newRow("another modifier") << QList<int>{KEY_LEFTMETA, KEY_LEFTSHIFT, KEY_C};
        QTest::newRow("another key") << QList<int>{KEY_LEFTALT, KEY_LEFTSHIFT, KEY_V};
    }
    void otherCombinationsAreNotReported()
    {
        QFETCH(const QList<int>, keys);
        Program program;
        KeyboardInput keyboard;
        QCOMPARE(program.take(keyC, altShift, 1), 0);
        for (const int key : keys) {
            keyboard.press(key);
        }
        for (const int key : keys) {
            keyboard.release(key);
        }
        QCOMPARE(program.reportsUntilNow(keyboard), QStringList());
    }

    void eachModifierHasItsKeys_data()
    {
        QTest::addColumn<int>("modifiers");
        QTest::addColumn<int>("key");
        QTest::newRow("Shift") << 0x200 << KEY_RIGHTSHIFT;
        QTest::newRow("Control") << 0x1000 << KEY_LEFTCTRL;
        QTest::newRow("left Alt") << 0x800 << KEY_LEFTALT;
        QTest::newRow("right Alt") << 0x800 << KEY_RIGHTALT;
        QTest::newRow("left Super") << 0x100 << KEY_LEFTMETA;
        QTest::newRow("right Super") << 0x100 << KEY_RIGHTMETA;
    }
    void eachModifierHasItsKeys()
    {
        QFETCH(const int, modifiers);
        QFETCH(const int, key);
        Program program;
        KeyboardInput keyboard;
        QCOMPARE(program.take(keyC, modifiers, 1), 0);
        keyboard.chord({key, KEY_C});
        QCOMPARE(program.reportsUntilNow(keyboard),
                 (QStringList{QStringLiteral("1 down"), QStringLiteral("1 up")}));
    }

    void aHeldKeyIsOnePressAndOneRelease()
    {
        Program program;
        KeyboardInput keyboard;
        QCOMPARE(program.take(keyC, altShift, 1), 0);
        const RepeatCounter server(*program.connection);
        keyboard.press(KEY_LEFTALT);
        keyboard.press(KEY_LEFTSHIFT);
        keyboard.press(KEY_C);
        QTRY_VERIFY(server.presses() >= 8);
        QCOMPARE(program.reports, QStringList{QStringLiteral("1 down")});
        keyboard.release(KEY_C);
        QTRY_COMPARE(program.reports, (QStringList{QStringLiteral("1 down"), QStringLiteral("1 up")}));
    }

    void theReleaseOfTheKeyIsReportedInEveryOrderOfReleases_data()
    {
        QTest::addColumn<QList<int>>("releases");
        QTest::newRow("key first") << QList<int>{KEY_C, KEY_LEFTSHIFT, KEY_LEFTALT};
        QTest::newRow("modifiers first") << QList<int>{KEY_LEFTALT, KEY_LEFTSHIFT, KEY_C};
        QTest::newRow("key between") << QList<int>{KEY_LEFTALT, KEY_C, KEY_LEFTSHIFT};
    }
    void theReleaseOfTheKeyIsReportedInEveryOrderOfReleases()
    {
        QFETCH(const QList<int>, releases);
        Program program;
        KeyboardInput keyboard;
        QCOMPARE(program.take(keyC, altShift, 1), 0);
        keyboard.press(KEY_LEFTALT);
        keyboard.press(KEY_LEFTSHIFT);
        keyboard.press(KEY_C);
        QTRY_COMPARE(program.reports, QStringList{QStringLiteral("1 down")});
        for (const int key : releases) {
            keyboard.release(key);
        }
        QCOMPARE(program.reportsUntilNow(keyboard),
                 (QStringList{QStringLiteral("1 down"), QStringLiteral("1 up")}));
    }

    void twoQuickPressesAreReportedTwice()
    {
        Program program;
        KeyboardInput keyboard;
        QCOMPARE(program.take(keyC, altShift, 1), 0);
        keyboard.press(KEY_LEFTALT);
        keyboard.press(KEY_LEFTSHIFT);
        keyboard.tap(KEY_C);
        keyboard.tap(KEY_C);
        keyboard.release(KEY_LEFTSHIFT);
        keyboard.release(KEY_LEFTALT);
        QCOMPARE(program.reportsUntilNow(keyboard),
                 (QStringList{QStringLiteral("1 down"), QStringLiteral("1 up"), QStringLiteral("1 down"),
                              QStringLiteral("1 up")}));
    }

    void aSecondShortcutIsReportedWhileTheFirstIsHeld()
    {
        Program program;
        KeyboardInput keyboard;
        QCOMPARE(program.take(keyC, altShift, 1), 0);
        QCOMPARE(program.take(9, altShift, 2), 0);
        keyboard.chord({KEY_LEFTALT, KEY_LEFTSHIFT, KEY_C, KEY_V});
        QCOMPARE(program.reportsUntilNow(keyboard),
                 (QStringList{QStringLiteral("1 down"), QStringLiteral("2 down"), QStringLiteral("2 up"),
                              QStringLiteral("1 up")}));
    }

    void oneCombinationWithTwoIdsIsReportedForBothAndGrabbedUntilBothAreUnbound()
    {
        Program program;
        KeyboardInput keyboard;
        QCOMPARE(program.take(keyC, altShift, 1), 0);
        QCOMPARE(program.take(keyC, altShift, 2), 0);
        keyboard.chord({KEY_LEFTALT, KEY_LEFTSHIFT, KEY_C});
        QCOMPARE(program.reportsUntilNow(keyboard),
                 (QStringList{QStringLiteral("1 down"), QStringLiteral("2 down"), QStringLiteral("1 up"),
                              QStringLiteral("2 up")}));

        program.shortcuts.unbind(QStringLiteral("1"));
        QVERIFY(!grabByOther(keyboard.connection(), mod1 | shift));
        keyboard.chord({KEY_LEFTALT, KEY_LEFTSHIFT, KEY_C});
        QCOMPARE(program.reportsUntilNow(keyboard),
                 (QStringList{QStringLiteral("2 down"), QStringLiteral("2 up")}));

        program.shortcuts.unbind(QStringLiteral("2"));
        QTRY_VERIFY(grabByOther(keyboard.connection(), mod1 | shift));
    }

    void aCombinationOfAnotherClientIsRefusedAndLeavesNoGrab_data()
    {
        QTest::addColumn<int>("held");
        QTest::addColumn<bool>("throughInputExtension");
        QTest::newRow("the plain combination") << (mod1 | shift) << false;
        QTest::newRow("only under Num Lock") << (mod1 | shift | mod2) << false;
        QTest::newRow("only under Caps Lock and Num Lock") << (mod1 | shift | mod2 | lock) << false;
        QTest::newRow("the key with any modifiers") << int(XCB_MOD_MASK_ANY) << false;
        QTest::newRow("through the input extension") << (mod1 | shift) << true;
        QTest::newRow("through the input extension under Caps Lock") << (mod1 | shift | lock) << true;
    }
    void aCombinationOfAnotherClientIsRefusedAndLeavesNoGrab()
    {
        QFETCH(const int, held);
        QFETCH(const bool, throughInputExtension);
        Program program;
        KeyboardInput third;
        {
            DesktopConnection other(qgetenv("DISPLAY"));
            QVERIFY(grabByOther(other, static_cast<std::uint16_t>(held),
                                throughInputExtension ? GrabKind::InputExtension : GrabKind::Core));
            QVERIFY(program.shortcuts.isTaken({keyC, altShift}));
            QCOMPARE(program.take(keyC, altShift, 1), -9878);
            QCOMPARE(program.refusal->reason, ShortcutRefusal::Reason::Taken);
        }
        for (const unsigned locks : {0U, unsigned{lock}, unsigned{mod2}, unsigned{lock | mod2}}) {
            DesktopConnection fourth(qgetenv("DISPLAY"));
            QTRY_VERIFY(grabByOther(fourth, static_cast<std::uint16_t>(mod1 | shift | locks)));
        }
        QTRY_VERIFY(!program.shortcuts.isTaken({keyC, altShift}));
        QCOMPARE(program.take(keyC, altShift, 2), 0);
        third.chord({KEY_LEFTALT, KEY_LEFTSHIFT, KEY_C});
        QCOMPARE(program.reportsUntilNow(third),
                 (QStringList{QStringLiteral("2 down"), QStringLiteral("2 up")}));
    }

    void isTakenDoesNotChangeTheGrabs()
    {
        Program program;
        KeyboardInput keyboard;
        QVERIFY(!program.shortcuts.isTaken({keyC, altShift}));
        QTRY_VERIFY(grabByOther(keyboard.connection(), mod1 | shift | lock));
        xcb_ungrab_key(keyboard.connection().get(), keycodeC, keyboard.connection().root(), XCB_MOD_MASK_ANY);
        keyboard.connection().sync();

        QCOMPARE(program.take(keyC, altShift, 1), 0);
        QVERIFY(!program.shortcuts.isTaken({keyC, altShift}));
        QVERIFY(!grabByOther(keyboard.connection(), mod1 | shift | lock));
        keyboard.chord({KEY_LEFTALT, KEY_LEFTSHIFT, KEY_C});
        QCOMPARE(program.reportsUntilNow(keyboard),
                 (QStringList{QStringLiteral("1 down"), QStringLiteral("1 up")}));
    }

    void missingKeysAndModifiersAreRefused_data()
    {
        QTest::addColumn<int>("keyCode");
        QTest::addColumn<int>("modifiers");
        QTest::newRow("no such key code") << 999 << 0xA00;
        QTest::newRow("a negative key code") << -1 << 0xA00;
        QTest::newRow("a key above all keycodes") << 63 << 0;
        QTest::newRow("the Function modifier") << 8 << 0x20A00;
    }
    void missingKeysAndModifiersAreRefused()
    {
        QFETCH(const int, keyCode);
        QFETCH(const int, modifiers);
        Program program;
        QCOMPARE(program.take(keyCode, modifiers, 1), -50);
        QCOMPARE(program.refusal->reason, ShortcutRefusal::Reason::NoSuchKey);
        QVERIFY(!program.shortcuts.isTaken({keyCode, modifiers}));
    }

    void aSecondInstanceIsRefused()
    {
        Program second;
        KeyboardInput keyboard;
        {
            Program first;
            QCOMPARE(first.take(keyC, altShift, 1), 0);
            QCOMPARE(second.take(keyC, altShift, 1), -9878);
            keyboard.chord({KEY_LEFTALT, KEY_LEFTSHIFT, KEY_C});
            QCOMPARE(first.reportsUntilNow(keyboard),
                     (QStringList{QStringLiteral("1 down"), QStringLiteral("1 up")}));
            QCOMPARE(second.reports, QStringList());
        }
        QTRY_COMPARE(second.take(keyC, altShift, 2), 0);
    }

    void aShortcutKeepsItsPositionInEveryLayout_data()
    {
        QTest::addColumn<QString>("layouts");
        QTest::addColumn<QString>("variant");
        QTest::addColumn<int>("group");
        QTest::newRow("fr") << "fr"
                            << "" << 0;
        QTest::newRow("de, where right Alt is AltGr") << "de"
                                                      << "" << 0;
        QTest::newRow("dvorak") << "us"
                                << "dvorak" << 0;
        QTest::newRow("ru of ru and us") << "ru,us"
                                         << "" << 0;
        QTest::newRow("us of ru and us") << "ru,us"
                                         << "" << 1;
        QTest::newRow("ru alone") << "ru"
                                  << "" << 0;
    }
    void aShortcutKeepsItsPositionInEveryLayout()
    {
        QFETCH(const QString, layouts);
        QFETCH(const QString, variant);
        QFETCH(const int, group);
        Program program;
        KeyboardInput keyboard;
        QCOMPARE(program.take(keyC, altShift, 1), 0);
        setKeymap(layouts, variant);
        keyboard.chooseGroup(static_cast<std::uint8_t>(group));
        keyboard.tap(KEY_NUMLOCK);
        QCOMPARE(program.reportsUntilNow(keyboard), QStringList());
        keyboard.chord({KEY_LEFTALT, KEY_LEFTSHIFT, KEY_C});
        QCOMPARE(program.reportsUntilNow(keyboard),
                 (QStringList{QStringLiteral("1 down"), QStringLiteral("1 up")}));
        keyboard.chord({KEY_LEFTALT, KEY_LEFTSHIFT, KEY_V});
        QCOMPARE(program.reportsUntilNow(keyboard), QStringList());
    }

    void aKeymapThatSwapsAltAndSuperMovesTheModifiers()
    {
        Program program;
        KeyboardInput keyboard;
        QCOMPARE(program.take(keyC, altShift, 1), 0);
        setKeymap(QStringLiteral("us"), {}, QStringLiteral("altwin:swap_alt_win"));
        QCOMPARE(program.reportsUntilNow(keyboard), QStringList());
        keyboard.chord({KEY_LEFTALT, KEY_LEFTSHIFT, KEY_C});
        QCOMPARE(program.reportsUntilNow(keyboard), QStringList());
        keyboard.chord({KEY_LEFTMETA, KEY_LEFTSHIFT, KEY_C});
        QCOMPARE(program.reportsUntilNow(keyboard),
                 (QStringList{QStringLiteral("1 down"), QStringLiteral("1 up")}));
    }

    void locksOnOtherModifiersAreIgnoredToo_data()
    {
        QTest::addColumn<QStringList>("commands");
        QTest::addColumn<int>("lockKey");
        QTest::newRow("Num Lock moved to the third modifier")
            << QStringList{QStringLiteral("clear mod2"), QStringLiteral("clear mod3"),
                           QStringLiteral("add mod3 = Num_Lock")}
            << KEY_NUMLOCK;
        QTest::newRow("Scroll Lock put on the third modifier")
            << QStringList{QStringLiteral("clear mod3"), QStringLiteral("add mod3 = Scroll_Lock")}
            << KEY_SCROLLLOCK;
    }
    void locksOnOtherModifiersAreIgnoredToo()
    {
        QFETCH(const QStringList, commands);
        QFETCH(const int, lockKey);
        Program program;
        KeyboardInput keyboard;
        QCOMPARE(program.take(keyC, altShift, 1), 0);
        QStringList arguments;
        for (const auto& command : commands) {
            arguments << QStringLiteral("-e") << command;
        }
        run(QStringLiteral("xmodmap"), arguments);
        QCOMPARE(program.reportsUntilNow(keyboard), QStringList());
        keyboard.tap(lockKey);
        QCOMPARE(keyboard.modifiers(), mod3);
        keyboard.chord({KEY_LEFTALT, KEY_LEFTSHIFT, KEY_C});
        QTRY_COMPARE(program.reports, (QStringList{QStringLiteral("1 down"), QStringLiteral("1 up")}));
    }

    void bindingAnIdAgainReplacesItsKeys()
    {
        Program program;
        KeyboardInput keyboard;
        QCOMPARE(program.take(keyC, altShift, 1), 0);
        QCOMPARE(program.take(9, altShift, 1), 0);
        keyboard.chord({KEY_LEFTALT, KEY_LEFTSHIFT, KEY_C});
        keyboard.chord({KEY_LEFTALT, KEY_LEFTSHIFT, KEY_V});
        QCOMPARE(program.reportsUntilNow(keyboard),
                 (QStringList{QStringLiteral("1 down"), QStringLiteral("1 up")}));
        QTRY_VERIFY(grabByOther(keyboard.connection(), mod1 | shift));
    }

    void aRefusedIdKeepsItsOldKeysUntilItGetsTheNewOnes()
    {
        Program program;
        KeyboardInput keyboard;
        const auto oldKeys = {KEY_LEFTALT, KEY_LEFTSHIFT, KEY_V};
        const auto newKeys = {KEY_LEFTALT, KEY_LEFTSHIFT, KEY_C};
        const QStringList once{QStringLiteral("1 down"), QStringLiteral("1 up")};
        {
            DesktopConnection other(qgetenv("DISPLAY"));
            QVERIFY(grabByOther(other, mod1 | shift));
            QCOMPARE(program.take(9, altShift, 1), 0);
            QCOMPARE(program.take(keyC, altShift, 1), -9878);
            keyboard.chord(oldKeys);
            keyboard.chord(newKeys);
            QCOMPARE(program.reportsUntilNow(keyboard), once);
        }
        QTRY_VERIFY(!program.shortcuts.isTaken({keyC, altShift}));
        program.bound.clear();
        program.shortcuts.retry();
        QCOMPARE(program.bound, QStringList{QStringLiteral("1")});
        keyboard.chord(oldKeys);
        keyboard.chord(newKeys);
        QCOMPARE(program.reportsUntilNow(keyboard), once);
    }

    void anIdThatIsUnboundLosesItsOldKeysToo()
    {
        Program program;
        KeyboardInput keyboard;
        DesktopConnection other(qgetenv("DISPLAY"));
        QVERIFY(grabByOther(other, mod1 | shift));
        QCOMPARE(program.take(9, altShift, 1), 0);
        QCOMPARE(program.take(keyC, altShift, 1), -9878);
        program.shortcuts.unbind(QStringLiteral("1"));
        keyboard.chord({KEY_LEFTALT, KEY_LEFTSHIFT, KEY_V});
        QCOMPARE(program.reportsUntilNow(keyboard), QStringList());
    }

    void freeKeysAreTakenWithoutARequest_data()
    {
        QTest::addColumn<int>("interval");
        QTest::addColumn<bool>("holderHasAWindow");
        QTest::newRow("when the window of their holder is destroyed") << 3'600'000 << true;
        QTest::newRow("after the interval") << 100 << false;
    }
    void freeKeysAreTakenWithoutARequest()
    {
        QFETCH(const int, interval);
        QFETCH(const bool, holderHasAWindow);
        Program program{std::chrono::milliseconds(interval)};
        KeyboardInput keyboard;
        {
            DesktopConnection other(qgetenv("DISPLAY"));
            QVERIFY(grabByOther(other, mod1 | shift));
            if (holderHasAWindow) {
                xcb_create_window(other.get(), XCB_COPY_FROM_PARENT, other.newId(), other.root(), 0, 0, 1, 1,
                                  0, XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, 0, nullptr);
                other.sync();
            }
            QCOMPARE(program.take(keyC, altShift, 1), -9878);
            QCOMPARE(program.bound, QStringList());
        }
        QTRY_COMPARE(program.bound, QStringList{QStringLiteral("1")});
        keyboard.chord({KEY_LEFTALT, KEY_LEFTSHIFT, KEY_C});
        QCOMPARE(program.reportsUntilNow(keyboard),
                 (QStringList{QStringLiteral("1 down"), QStringLiteral("1 up")}));
    }

    void refusedKeysAreReportedOnce()
    {
        Program program{std::chrono::milliseconds(1)};
        DesktopConnection other(qgetenv("DISPLAY"));
        QVERIFY(grabByOther(other, mod1 | shift));
        QSignalSpy refusals(&program.shortcuts, &GlobalShortcuts::refused);
        QCOMPARE(program.take(keyC, altShift, 1), -9878);
        program.shortcuts.retry();
        program.shortcuts.retry();
        QCOMPARE(refusals.count(), 1);
    }

    void freeKeysAreTakenAfterAChangeOfTheKeymap()
    {
        Program program;
        {
            DesktopConnection other(qgetenv("DISPLAY"));
            QVERIFY(grabByOther(other, mod1 | shift));
            QCOMPARE(program.take(keyC, altShift, 1), -9878);
        }
        setKeymap(QStringLiteral("fr"));
        QTRY_COMPARE(program.bound, QStringList{QStringLiteral("1")});
    }

    void aSlotMayUnbindItsShortcut()
    {
        Program program;
        KeyboardInput keyboard;
        QCOMPARE(program.take(keyC, altShift, 1), 0);
        QObject::connect(&program.shortcuts, &GlobalShortcuts::activated, &program.shortcuts,
                         [&program](const QString& id) { program.shortcuts.unbind(id); });
        keyboard.chord({KEY_LEFTALT, KEY_LEFTSHIFT, KEY_C});
        QTRY_COMPARE(program.reports, QStringList{QStringLiteral("1 down")});
        QTRY_VERIFY(grabByOther(keyboard.connection(), mod1 | shift));
    }

    void theGrabsEndWithTheObject()
    {
        KeyboardInput keyboard;
        {
            Program program;
            QCOMPARE(program.take(keyC, altShift, 1), 0);
            QVERIFY(!grabByOther(keyboard.connection(), mod1 | shift));
        }
        QTRY_VERIFY(grabByOther(keyboard.connection(), mod1 | shift));
    }
};

} // namespace tintwick::test

int main(int argc, char** argv)
{
    return tintwick::runOnPrivateDesktop<tintwick::test::X11GlobalShortcutsTest>(argc, argv, {.tray = false});
}

#include "X11GlobalShortcutsTest.moc"
