#include "X11HotKeyRegistrar.h"
#include "support/HandOnKeyboard.h"
#include "support/PrivateDesktopMain.h"

#include <QProcess>
#include <QTest>

#include <xcb/xinput.h>

#include <algorithm>

namespace tintwick::test {

namespace {

constexpr int keyC = 8;
constexpr int keyF12 = 111;
constexpr int optionShift = 0xA00;
constexpr xcb_keycode_t keycodeC = KEY_C + 8;
constexpr std::uint16_t lock = 0x02, mod1 = 0x08, mod2 = 0x10, mod3 = 0x20, shift = 0x01;

/// One program that takes shortcuts, as the server sees it.
struct Program
{
    std::unique_ptr<XcbConnection> connection = XcbConnection::open();
    X11HotKeyRegistrar registrar{*connection};
    /// "<id> down" and "<id> up" in the order reported.
    QStringList reports;

    Program()
    {
        registrar.setHotKeyHandler([this](std::uint32_t id, KeyDirection direction) {
            reports << QString::number(id) +
                           QLatin1StringView(direction == KeyDirection::Press ? " down" : " up");
        });
    }

    [[nodiscard]] int take(int keyCode, int modifiers, std::uint32_t id)
    {
        return registrar.registerHotKey(keyCode, modifiers, id).status;
    }
    /// Everything reported until now; F12, which comes last, tells when all has come in. It is id 99.
    [[nodiscard]] QStringList reportsUntilNow(HandOnKeyboard& hand)
    {
        const auto f12 = registrar.registerHotKey(keyF12, 0, 99);
        hand.tap(KEY_F12);
        const auto end = QStringLiteral("99 up");
        [&] { QTRY_VERIFY(reports.contains(end)); }();
        registrar.unregisterHotKey(f12.handle.value_or(0));
        auto result = std::exchange(reports, {});
        result.removeAll(QStringLiteral("99 down"));
        result.removeAll(end);
        return result;
    }
};

/// Counts what the server sends for a held key.
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

/// Another program takes exactly this one combination; false when it is refused.
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

class X11HotKeyRegistrarTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        // A held key repeats soon and often, so that no test has to wait for it.
        run(QStringLiteral("xset"),
            {QStringLiteral("r"), QStringLiteral("rate"), QStringLiteral("60"), QStringLiteral("100")});
    }
    void cleanup() { setKeymap(QStringLiteral("us")); }

    void aPressAndItsReleaseAreReportedOnceWhateverIsLocked_data()
    {
        QTest::addColumn<QList<int>>("lockKeys");
        QTest::addColumn<int>("locked");
        QTest::newRow("nothing") << QList<int>{} << 0;
        QTest::newRow("Caps Lock") << QList<int>{KEY_CAPSLOCK} << int(lock);
        QTest::newRow("Num Lock") << QList<int>{KEY_NUMLOCK} << int(mod2);
        QTest::newRow("Caps Lock and Num Lock") << QList<int>{KEY_CAPSLOCK, KEY_NUMLOCK} << int(lock | mod2);
    }
    void aPressAndItsReleaseAreReportedOnceWhateverIsLocked()
    {
        QFETCH(const QList<int>, lockKeys);
        QFETCH(const int, locked);
        Program program;
        HandOnKeyboard hand;
        for (const int key : lockKeys) {
            hand.tap(key);
        }
        QCOMPARE(int(hand.modifiers()), locked);
        QCOMPARE(program.take(keyC, optionShift, 1), 0);
        hand.chord({KEY_LEFTALT, KEY_LEFTSHIFT, KEY_C});
        QCOMPARE(program.reportsUntilNow(hand),
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
        HandOnKeyboard hand;
        QCOMPARE(program.take(keyC, optionShift, 1), 0);
        for (const int key : keys) {
            hand.press(key);
        }
        for (const int key : keys) {
            hand.release(key);
        }
        QCOMPARE(program.reportsUntilNow(hand), QStringList());
    }

    void eachModifierIsTakenByItsKey_data()
    {
        QTest::addColumn<int>("modifiers");
        QTest::addColumn<int>("key");
        QTest::newRow("Shift") << 0x200 << KEY_RIGHTSHIFT;
        QTest::newRow("Control") << 0x1000 << KEY_LEFTCTRL;
        QTest::newRow("Option is Alt") << 0x800 << KEY_LEFTALT;
        QTest::newRow("Option is the right Alt too") << 0x800 << KEY_RIGHTALT;
        QTest::newRow("Command is Super") << 0x100 << KEY_LEFTMETA;
        QTest::newRow("Command is the right Super too") << 0x100 << KEY_RIGHTMETA;
    }
    void eachModifierIsTakenByItsKey()
    {
        QFETCH(const int, modifiers);
        QFETCH(const int, key);
        Program program;
        HandOnKeyboard hand;
        QCOMPARE(program.take(keyC, modifiers, 1), 0);
        hand.chord({key, KEY_C});
        QCOMPARE(program.reportsUntilNow(hand),
                 (QStringList{QStringLiteral("1 down"), QStringLiteral("1 up")}));
    }

    void aHeldKeyIsOnePressAndOneRelease()
    {
        Program program;
        HandOnKeyboard hand;
        QCOMPARE(program.take(keyC, optionShift, 1), 0);
        const RepeatCounter server(*program.connection);
        hand.press(KEY_LEFTALT);
        hand.press(KEY_LEFTSHIFT);
        hand.press(KEY_C);
        QTRY_VERIFY(server.presses() >= 8);
        QCOMPARE(program.reports, QStringList{QStringLiteral("1 down")});
        hand.release(KEY_C);
        QTRY_COMPARE(program.reports, (QStringList{QStringLiteral("1 down"), QStringLiteral("1 up")}));
    }

    void theKeysReleaseCountsWhateverTheModifiersDo_data()
    {
        QTest::addColumn<QList<int>>("releases");
        QTest::newRow("key first") << QList<int>{KEY_C, KEY_LEFTSHIFT, KEY_LEFTALT};
        QTest::newRow("modifiers first") << QList<int>{KEY_LEFTALT, KEY_LEFTSHIFT, KEY_C};
        QTest::newRow("key between") << QList<int>{KEY_LEFTALT, KEY_C, KEY_LEFTSHIFT};
    }
    void theKeysReleaseCountsWhateverTheModifiersDo()
    {
        QFETCH(const QList<int>, releases);
        Program program;
        HandOnKeyboard hand;
        QCOMPARE(program.take(keyC, optionShift, 1), 0);
        hand.press(KEY_LEFTALT);
        hand.press(KEY_LEFTSHIFT);
        hand.press(KEY_C);
        QTRY_COMPARE(program.reports, QStringList{QStringLiteral("1 down")});
        for (const int key : releases) {
            hand.release(key);
        }
        QCOMPARE(program.reportsUntilNow(hand),
                 (QStringList{QStringLiteral("1 down"), QStringLiteral("1 up")}));
    }

    void twoQuickPressesAreTwo()
    {
        Program program;
        HandOnKeyboard hand;
        QCOMPARE(program.take(keyC, optionShift, 1), 0);
        hand.press(KEY_LEFTALT);
        hand.press(KEY_LEFTSHIFT);
        hand.tap(KEY_C);
        hand.tap(KEY_C);
        hand.release(KEY_LEFTSHIFT);
        hand.release(KEY_LEFTALT);
        QCOMPARE(program.reportsUntilNow(hand),
                 (QStringList{QStringLiteral("1 down"), QStringLiteral("1 up"), QStringLiteral("1 down"),
                              QStringLiteral("1 up")}));
    }

    void aSecondShortcutIsHeardWhileTheFirstIsHeld()
    {
        Program program;
        HandOnKeyboard hand;
        QCOMPARE(program.take(keyC, optionShift, 1), 0);
        QCOMPARE(program.take(9, optionShift, 2), 0);
        hand.chord({KEY_LEFTALT, KEY_LEFTSHIFT, KEY_C, KEY_V});
        QCOMPARE(program.reportsUntilNow(hand),
                 (QStringList{QStringLiteral("1 down"), QStringLiteral("2 down"), QStringLiteral("2 up"),
                              QStringLiteral("1 up")}));
    }

    void oneCombinationUnderTwoIdsIsReportedForBothAndHeldUntilBothAreGone()
    {
        Program program;
        HandOnKeyboard hand;
        const auto first = program.registrar.registerHotKey(keyC, optionShift, 1);
        const auto second = program.registrar.registerHotKey(keyC, optionShift, 2);
        hand.chord({KEY_LEFTALT, KEY_LEFTSHIFT, KEY_C});
        QCOMPARE(program.reportsUntilNow(hand),
                 (QStringList{QStringLiteral("1 down"), QStringLiteral("2 down"), QStringLiteral("1 up"),
                              QStringLiteral("2 up")}));

        program.registrar.unregisterHotKey(*first.handle);
        QVERIFY(!grabByOther(hand.connection(), mod1 | shift));
        hand.chord({KEY_LEFTALT, KEY_LEFTSHIFT, KEY_C});
        QCOMPARE(program.reportsUntilNow(hand),
                 (QStringList{QStringLiteral("2 down"), QStringLiteral("2 up")}));

        program.registrar.unregisterHotKey(*second.handle);
        QTRY_VERIFY(grabByOther(hand.connection(), mod1 | shift));
    }

    void whatAnotherProgramHoldsIsTakenAndNothingOfItIsKept_data()
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
    void whatAnotherProgramHoldsIsTakenAndNothingOfItIsKept()
    {
        QFETCH(const int, held);
        QFETCH(const bool, throughInputExtension);
        Program program;
        HandOnKeyboard third;
        {
            DesktopConnection other(qgetenv("DISPLAY"));
            QVERIFY(grabByOther(other, static_cast<std::uint16_t>(held),
                                throughInputExtension ? GrabKind::InputExtension : GrabKind::Core));
            QVERIFY(program.registrar.isTaken(keyC, optionShift));
            const auto registration = program.registrar.registerHotKey(keyC, optionShift, 1);
            QCOMPARE(registration.status, -9878);
            QVERIFY(!registration.handle);
        }
        for (const unsigned locks : {0U, unsigned{lock}, unsigned{mod2}, unsigned{lock | mod2}}) {
            DesktopConnection fourth(qgetenv("DISPLAY"));
            QTRY_VERIFY(grabByOther(fourth, static_cast<std::uint16_t>(mod1 | shift | locks)));
        }
        QTRY_VERIFY(!program.registrar.isTaken(keyC, optionShift));
        QCOMPARE(program.take(keyC, optionShift, 2), 0);
        third.chord({KEY_LEFTALT, KEY_LEFTSHIFT, KEY_C});
        QCOMPARE(program.reportsUntilNow(third),
                 (QStringList{QStringLiteral("2 down"), QStringLiteral("2 up")}));
    }

    void askingWhetherACombinationIsTakenLeavesItAsItIs()
    {
        Program program;
        HandOnKeyboard hand;
        QVERIFY(!program.registrar.isTaken(keyC, optionShift));
        QTRY_VERIFY(grabByOther(hand.connection(), mod1 | shift | lock));
        xcb_ungrab_key(hand.connection().get(), keycodeC, hand.connection().root(), XCB_MOD_MASK_ANY);
        hand.connection().sync();

        QCOMPARE(program.take(keyC, optionShift, 1), 0);
        QVERIFY(!program.registrar.isTaken(keyC, optionShift));
        QVERIFY(!grabByOther(hand.connection(), mod1 | shift | lock));
        hand.chord({KEY_LEFTALT, KEY_LEFTSHIFT, KEY_C});
        QCOMPARE(program.reportsUntilNow(hand),
                 (QStringList{QStringLiteral("1 down"), QStringLiteral("1 up")}));
    }

    void keysAndModifiersThatTheKeyboardDoesNotHaveAreRefused_data()
    {
        QTest::addColumn<int>("keyCode");
        QTest::addColumn<int>("modifiers");
        QTest::newRow("no such key code") << 999 << 0xA00;
        QTest::newRow("a negative key code") << -1 << 0xA00;
        QTest::newRow("a key above all keycodes") << 63 << 0;
        QTest::newRow("the Function modifier") << 8 << 0x20A00;
    }
    void keysAndModifiersThatTheKeyboardDoesNotHaveAreRefused()
    {
        QFETCH(const int, keyCode);
        QFETCH(const int, modifiers);
        Program program;
        QCOMPARE(program.take(keyCode, modifiers, 1), -50);
        QVERIFY(!program.registrar.isTaken(keyCode, modifiers));
    }

    void twoCopiesOfTheProgramDoNotFight()
    {
        Program second;
        HandOnKeyboard hand;
        {
            Program first;
            QCOMPARE(first.take(keyC, optionShift, 1), 0);
            QCOMPARE(second.take(keyC, optionShift, 1), -9878);
            hand.chord({KEY_LEFTALT, KEY_LEFTSHIFT, KEY_C});
            QCOMPARE(first.reportsUntilNow(hand),
                     (QStringList{QStringLiteral("1 down"), QStringLiteral("1 up")}));
            QCOMPARE(second.reports, QStringList());
        }
        QTRY_COMPARE(second.take(keyC, optionShift, 2), 0);
    }

    void positionsStayTakenInEveryLayout_data()
    {
        QTest::addColumn<QString>("layouts");
        QTest::addColumn<QString>("variant");
        QTest::addColumn<int>("group");
        QTest::newRow("fr") << "fr"
                            << "" << 0;
        QTest::newRow("de, whose right Alt is no Alt") << "de"
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
    void positionsStayTakenInEveryLayout()
    {
        QFETCH(const QString, layouts);
        QFETCH(const QString, variant);
        QFETCH(const int, group);
        Program program;
        HandOnKeyboard hand;
        QCOMPARE(program.take(keyC, optionShift, 1), 0);
        setKeymap(layouts, variant);
        hand.chooseGroup(static_cast<std::uint8_t>(group));
        hand.tap(KEY_NUMLOCK);
        QCOMPARE(program.reportsUntilNow(hand), QStringList());
        hand.chord({KEY_LEFTALT, KEY_LEFTSHIFT, KEY_C});
        QCOMPARE(program.reportsUntilNow(hand),
                 (QStringList{QStringLiteral("1 down"), QStringLiteral("1 up")}));
        hand.chord({KEY_LEFTALT, KEY_LEFTSHIFT, KEY_V});
        QCOMPARE(program.reportsUntilNow(hand), QStringList());
    }

    void aKeymapThatSwapsAltAndSuperMovesTheModifiers()
    {
        Program program;
        HandOnKeyboard hand;
        QCOMPARE(program.take(keyC, optionShift, 1), 0);
        setKeymap(QStringLiteral("us"), {}, QStringLiteral("altwin:swap_alt_win"));
        QCOMPARE(program.reportsUntilNow(hand), QStringList());
        hand.chord({KEY_LEFTALT, KEY_LEFTSHIFT, KEY_C});
        QCOMPARE(program.reportsUntilNow(hand), QStringList());
        hand.chord({KEY_LEFTMETA, KEY_LEFTSHIFT, KEY_C});
        QCOMPARE(program.reportsUntilNow(hand),
                 (QStringList{QStringLiteral("1 down"), QStringLiteral("1 up")}));
    }

    void locksAreFollowedToOtherModifiers_data()
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
    void locksAreFollowedToOtherModifiers()
    {
        QFETCH(const QStringList, commands);
        QFETCH(const int, lockKey);
        Program program;
        HandOnKeyboard hand;
        QCOMPARE(program.take(keyC, optionShift, 1), 0);
        QStringList arguments;
        for (const auto& command : commands) {
            arguments << QStringLiteral("-e") << command;
        }
        run(QStringLiteral("xmodmap"), arguments);
        QCOMPARE(program.reportsUntilNow(hand), QStringList());
        hand.tap(lockKey);
        QCOMPARE(hand.modifiers(), mod3);
        hand.chord({KEY_LEFTALT, KEY_LEFTSHIFT, KEY_C});
        QTRY_COMPARE(program.reports, (QStringList{QStringLiteral("1 down"), QStringLiteral("1 up")}));
    }

    void whatIsHeldGoesWithTheProgram()
    {
        HandOnKeyboard hand;
        {
            Program program;
            QCOMPARE(program.take(keyC, optionShift, 1), 0);
            QVERIFY(!grabByOther(hand.connection(), mod1 | shift));
        }
        QTRY_VERIFY(grabByOther(hand.connection(), mod1 | shift));
    }
};

} // namespace tintwick::test

int main(int argc, char** argv)
{
    return tintwick::runOnPrivateDesktop<tintwick::test::X11HotKeyRegistrarTest>(argc, argv, {.tray = false});
}

#include "X11HotKeyRegistrarTest.moc"
