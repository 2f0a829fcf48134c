#include "X11KeyRecording.h"
#include "X11GlobalShortcuts.h"
#include "support/KeyboardInput.h"
#include "support/PrivateDesktopMain.h"
#include "support/TestWindow.h"

#include <QAbstractNativeEventFilter>
#include <QProcess>
#include <QScopeGuard>
#include <QTest>
#include <QWidget>

#include <xcb/xinput.h>

#include <cstdio>

namespace tintwick::test {

namespace {

constexpr int super = 0x100, shift = 0x200, alt = 0x800;
constexpr int keyC = 8;
constexpr std::uint16_t mod1 = 0x08, shiftBit = 0x01;
constexpr auto holdArgument = "hold-the-keyboard";

/// Records each key as "<key code>+<modifiers>", with "again" for a repetition.
struct Recorder final
{
    QStringList keys;
    bool isLost = false;
    std::function<void()> onKey;

    explicit Recorder(const KeyRecording& recording)
    {
        QObject::connect(&recording, &KeyRecording::keyPressed, &recording, [this](const KeyPress& press) {
            keys << QStringLiteral("%1+%2").arg(press.keyCode).arg(press.modifiers) +
                        QLatin1StringView(press.isRepeat ? " again" : "");
            if (onKey) {
                onKey();
            }
        });
        QObject::connect(&recording, &KeyRecording::lost, &recording, [this] { isLost = true; });
    }
};

/// A client of the server that records keys and has a shortcut.
struct Program
{
    std::unique_ptr<XcbConnection> connection = XcbConnection::open();
    X11GlobalShortcuts shortcuts{*connection};
    XkbKeymap keymap{*connection};
    X11KeyRecording recording{*connection, keymap};
    Recorder recorder{recording};
    QStringList hotKeys;
    bool isRefused = false;

    Program()
    {
        QObject::connect(&shortcuts, &GlobalShortcuts::activated, &shortcuts,
                         [this] { hotKeys << QStringLiteral("down"); });
        QObject::connect(&shortcuts, &GlobalShortcuts::deactivated, &shortcuts,
                         [this] { hotKeys << QStringLiteral("up"); });
        QObject::connect(&shortcuts, &GlobalShortcuts::refused, &shortcuts, [this] { isRefused = true; });
    }
    [[nodiscard]] bool bind()
    {
        isRefused = false;
        shortcuts.bind(QStringLiteral("1"), QString(), Shortcut{keyC, alt | shift});
        return !isRefused;
    }
    [[nodiscard]] bool begin() { return recording.begin() == KeyRecording::Outcome::Started; }
    void end() { recording.end(); }
};

/// Waits long, because a window manager on a busy machine is still reading the keymaps that earlier tests have set.
bool becomesActive(QWidget& window)
{
    constexpr int patience = 20000; // milliseconds
    return QTest::qWaitForWindowActive(&window, patience);
}

enum class GrabKind { Core, InputExtension };

/// Another client that grabs Alt + Shift + C.
class Holder final
{
public:
    explicit Holder(GrabKind kind)
    {
        auto* const c = m_connection.get();
        if (kind == GrabKind::Core) {
            xcb_grab_key(c, 0, m_connection.root(), mod1 | shiftBit, KEY_C + 8, XCB_GRAB_MODE_ASYNC,
                         XCB_GRAB_MODE_ASYNC);
        } else {
            const std::uint32_t events = XCB_INPUT_XI_EVENT_MASK_KEY_PRESS;
            const std::uint32_t modifiers = mod1 | shiftBit;
            xcb_discard_reply(c, xcb_input_xi_query_version(c, 2, 2).sequence);
            const auto request = xcb_input_xi_passive_grab_device(
                c, XCB_CURRENT_TIME, m_connection.root(), XCB_CURSOR_NONE, KEY_C + 8,
                XCB_INPUT_DEVICE_ALL_MASTER, 1, 1, XCB_INPUT_GRAB_TYPE_KEYCODE, XCB_INPUT_GRAB_MODE_22_ASYNC,
                XCB_INPUT_GRAB_MODE_22_ASYNC, XCB_INPUT_GRAB_OWNER_NO_OWNER, &events, &modifiers);
            xcb_discard_reply(c, request.sequence);
        }
        m_connection.sync();
    }

    /// The number of presses received until now.
    [[nodiscard]] int presses()
    {
        m_connection.sync();
        while (const ServerReply<xcb_generic_event_t> event{xcb_poll_for_event(m_connection.get())}) {
            const auto type = event->response_type;
            m_presses += type == XCB_KEY_PRESS || type == XCB_GE_GENERIC ? 1 : 0;
        }
        return m_presses;
    }

private:
    DesktopConnection m_connection{qgetenv("DISPLAY")};
    int m_presses = 0;
};

/// Counts the focus events that the server sends to the toolkit.
class FocusEvents final : public QAbstractNativeEventFilter
{
public:
    FocusEvents() { QCoreApplication::instance()->installNativeEventFilter(this); }

    int out = 0;
    int in = 0;

private:
    bool nativeEventFilter(const QByteArray& /*eventType*/, void* message, qintptr* /*result*/) override
    {
        const auto type = static_cast<const xcb_generic_event_t*>(message)->response_type;
        out += type == XCB_FOCUS_OUT ? 1 : 0;
        in += type == XCB_FOCUS_IN ? 1 : 0;
        return false;
    }
};

void run(const char* program, const QStringList& arguments)
{
    QCOMPARE(QProcess::execute(QString::fromLatin1(program), arguments), 0);
}

const QList<int> altShiftC{KEY_LEFTALT, KEY_LEFTSHIFT, KEY_C};

void press(KeyboardInput& keyboard, const QList<int>& keys)
{
    for (const int key : keys) {
        keyboard.press(key);
    }
}
void release(KeyboardInput& keyboard, const QList<int>& keys)
{
    for (const int key : keys) {
        keyboard.release(key);
    }
}

} // namespace

class X11KeyRecordingTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        // Short auto-repeat times, so that no test waits long.
        run("xset",
            {QStringLiteral("r"), QStringLiteral("rate"), QStringLiteral("60"), QStringLiteral("100")});
    }
    // This test is the first, because the window manager renews its key grabs after a change of the keymap.
    void aShortcutOfTheWindowManagerDoesNothingWhileRecording()
    {
        Program program;
        KeyboardInput keyboard;
        auto& server = keyboard.connection();
        const auto showsDesktop = [&server] {
            return server.property(server.root(), "_NET_SHOWING_DESKTOP").startsWith('\1');
        };
        // Openbox: Super + D shows the desktop.
        QTRY_VERIFY(program.shortcuts.isTaken({2, super}));
        QVERIFY(program.begin());
        keyboard.chord({KEY_LEFTMETA, KEY_D});
        QTRY_COMPARE(program.recorder.keys, QStringList{QStringLiteral("2+256")});
        QVERIFY(!showsDesktop());
        program.end();
        QTRY_VERIFY(server.inputIsFree());
        keyboard.chord({KEY_LEFTMETA, KEY_D});
        QTRY_VERIFY(showsDesktop());
        keyboard.chord({KEY_LEFTMETA, KEY_D});
        QTRY_VERIFY(!showsDesktop());
    }

    void aKeyIsReportedByPositionWithItsModifiers_data()
    {
        QTest::addColumn<QStringList>("keymap");
        QTest::addColumn<QList<int>>("keys");
        QTest::addColumn<QString>("reported");

        const QStringList us{QStringLiteral("us")};
        QTest::newRow("C") << us << QList<int>{KEY_C} << "8+0";
        QTest::newRow("Shift C") << us << QList<int>{KEY_RIGHTSHIFT, KEY_C} << "8+512";
        QTest::newRow("Control C") << us << QList<int>{KEY_RIGHTCTRL, KEY_C} << "8+4096";
        QTest::newRow("Alt C") << us << QList<int>{KEY_LEFTALT, KEY_C} << "8+2048";
        QTest::newRow("Super C") << us << QList<int>{KEY_LEFTMETA, KEY_C} << "8+256";
        QTest::newRow("right Super C") << us << QList<int>{KEY_RIGHTMETA, KEY_C} << "8+256";
        QTest::newRow("all of them and F5")
            << us << QList<int>{KEY_LEFTMETA, KEY_LEFTSHIFT, KEY_LEFTALT, KEY_LEFTCTRL, KEY_F5} << "96+6912";
        QTest::newRow("5 on the keypad") << us << QList<int>{KEY_LEFTALT, KEY_KP5} << "87+2048";
        QTest::newRow("a key without a key code") << us << QList<int>{KEY_LEFTALT, KEY_POWER} << "-1+2048";
        QTest::newRow("Print") << us << QList<int>{KEY_SYSRQ} << "65635+0";
        QTest::newRow("Menu") << us << QList<int>{KEY_LEFTALT, KEY_COMPOSE} << "65663+2048";
        QTest::newRow("a media key") << us << QList<int>{KEY_LEFTCTRL, KEY_PLAYPAUSE} << "65700+4096";
        QTest::newRow("beside the left Shift")
            << QStringList{QStringLiteral("de")} << QList<int>{KEY_LEFTALT, KEY_102ND} << "10+2048";
        QTest::newRow("a modifier that no shortcut can have")
            << QStringList{QStringLiteral("de")} << QList<int>{KEY_RIGHTALT, KEY_LEFTSHIFT, KEY_C} << "-1+0";
        QTest::newRow("another layout")
            << QStringList{QStringLiteral("fr")} << QList<int>{KEY_LEFTALT, KEY_Q} << "12+2048";
        const QStringList swapped{QStringLiteral("us"), QStringLiteral("-option"),
                                  QStringLiteral("altwin:swap_alt_win")};
        QTest::newRow("Alt where Super was") << swapped << QList<int>{KEY_LEFTMETA, KEY_C} << "8+2048";
        QTest::newRow("Super where Alt was") << swapped << QList<int>{KEY_LEFTALT, KEY_C} << "8+256";
        QTest::newRow("Control where Caps Lock was")
            << QStringList{QStringLiteral("us"), QStringLiteral("-option"), QStringLiteral("ctrl:nocaps")}
            << QList<int>{KEY_CAPSLOCK, KEY_C} << "8+4096";
    }
    void aKeyIsReportedByPositionWithItsModifiers()
    {
        QFETCH(const QStringList, keymap);
        QFETCH(const QList<int>, keys);
        QFETCH(const QString, reported);
        const auto usAgain = qScopeGuard([] {
            run("setxkbmap", {QStringLiteral("us"), QStringLiteral("-option"), QString()});
        });
        run("setxkbmap", keymap);
        Program program;
        KeyboardInput keyboard;
        QVERIFY(program.begin());
        press(keyboard, keys);
        release(keyboard, keys);
        keyboard.tap(KEY_F12);
        QTRY_VERIFY(program.recorder.keys.contains(QStringLiteral("111+0")));
        QCOMPARE(program.recorder.keys, (QStringList{reported, QStringLiteral("111+0")}));
    }

    void theKeyInThePlaceOfCapsLockIsReportedWithItsCharacter_data()
    {
        QTest::addColumn<QString>("option");
        QTest::addColumn<char32_t>("character");
        QTest::newRow("Escape") << "caps:escape" << U'\u001B';
        QTest::newRow("Escape, with Shift Caps Lock") << "caps:escape_shifted_capslock" << U'\u001B';
        QTest::newRow("swapped with Escape") << "caps:swapescape" << U'\u001B';
        QTest::newRow("Backspace") << "caps:backspace" << U'\b';
    }
    void theKeyInThePlaceOfCapsLockIsReportedWithItsCharacter()
    {
        QFETCH(const QString, option);
        QFETCH(const char32_t, character);
        const auto usAgain = qScopeGuard([] {
            run("setxkbmap", {QStringLiteral("us"), QStringLiteral("-option"), QString()});
        });
        run("setxkbmap", {QStringLiteral("us"), QStringLiteral("-option"), option});
        Program program;
        KeyboardInput keyboard;
        std::optional<KeyPress> reported;
        QObject::connect(&program.recording, &KeyRecording::keyPressed, &program.recording,
                         [&](const KeyPress& press) { reported = press; });
        QVERIFY(program.begin());
        keyboard.tap(KEY_CAPSLOCK);
        QTRY_COMPARE(reported, (KeyPress{.keyCode = 57, .character = character}));
    }

    void locksAreIgnored()
    {
        Program program;
        KeyboardInput keyboard;
        keyboard.tap(KEY_CAPSLOCK);
        keyboard.tap(KEY_NUMLOCK);
        QVERIFY(program.begin());
        keyboard.chord({KEY_LEFTALT, KEY_C});
        QTRY_COMPARE(program.recorder.keys, QStringList{QStringLiteral("8+2048")});
        keyboard.tap(KEY_CAPSLOCK);
        keyboard.tap(KEY_NUMLOCK);
        keyboard.chord({KEY_LEFTALT, KEY_C});
        QTRY_COMPARE(program.recorder.keys,
                     (QStringList{QStringLiteral("8+2048"), QStringLiteral("8+2048")}));
    }

    void aCombinationOfAnotherClientIsRecordedAndThenReleased_data()
    {
        QTest::addColumn<GrabKind>("kind");
        QTest::newRow("core") << GrabKind::Core;
        QTest::newRow("input extension") << GrabKind::InputExtension;
    }
    void aCombinationOfAnotherClientIsRecordedAndThenReleased()
    {
        QFETCH(const GrabKind, kind);
        Holder holder(kind);
        Program program;
        KeyboardInput keyboard;
        QVERIFY(program.begin());
        press(keyboard, altShiftC);
        release(keyboard, altShiftC);
        QTRY_COMPARE(program.recorder.keys, QStringList{QStringLiteral("8+2560")});
        QCOMPARE(holder.presses(), 0);

        program.end();
        QTRY_VERIFY(keyboard.connection().inputIsFree());
        press(keyboard, altShiftC);
        release(keyboard, altShiftC);
        QTRY_COMPARE(holder.presses(), 1);
        QCOMPARE(program.recorder.keys.size(), 1);
    }

    void theFocusedWindowReceivesNoKeyWhileRecording()
    {
        Program program;
        KeyboardInput keyboard;
        TestWindow terminal(keyboard.connection(), {.input = TestWindow::Input::Recorded});
        terminal.show();
        terminal.focus();
        QVERIFY(program.begin());
        keyboard.tap(KEY_A);
        QTRY_COMPARE(program.recorder.keys, QStringList{QStringLiteral("0+0")});
        QVERIFY(terminal.events().empty());
        program.end();
        QTRY_VERIFY(keyboard.connection().inputIsFree());
        keyboard.tap(KEY_B);
        QTRY_COMPARE(terminal.events().size(), std::size_t{2});
        QCOMPARE(int(terminal.events().front().detail), KEY_B + 8);
    }

    void ourOwnShortcutsAreNotActivatedWhileRecording()
    {
        Program program;
        KeyboardInput keyboard;
        QVERIFY(program.bind());
        QVERIFY(program.begin());
        press(keyboard, altShiftC);
        release(keyboard, altShiftC);
        QTRY_COMPARE(program.recorder.keys, QStringList{QStringLiteral("8+2560")});
        QCOMPARE(program.hotKeys, QStringList());
        program.end();
        QTRY_VERIFY(keyboard.connection().inputIsFree());
        press(keyboard, altShiftC);
        release(keyboard, altShiftC);
        QTRY_COMPARE(program.hotKeys, (QStringList{QStringLiteral("down"), QStringLiteral("up")}));
    }

    void noOtherClientReceivesTheReleaseOfTheLastKey_data()
    {
        QTest::addColumn<QList<int>>("releases");
        QTest::newRow("key first") << QList<int>{KEY_C, KEY_LEFTSHIFT, KEY_LEFTALT};
        QTest::newRow("modifiers first") << QList<int>{KEY_LEFTALT, KEY_LEFTSHIFT, KEY_C};
    }
    void noOtherClientReceivesTheReleaseOfTheLastKey()
    {
        QFETCH(const QList<int>, releases);
        Program program;
        KeyboardInput keyboard;
        TestWindow terminal(keyboard.connection(), {.input = TestWindow::Input::Recorded});
        terminal.show();
        terminal.focus();
        QVERIFY(program.begin());
        // A recorder does this when it accepts the combination.
        program.recorder.onKey = [&program] {
            QVERIFY(program.bind());
            program.end();
        };
        press(keyboard, altShiftC);
        QTRY_COMPARE(program.recorder.keys.size(), 1);
        QVERIFY(!keyboard.connection().inputIsFree());
        release(keyboard, releases);
        QTRY_VERIFY(keyboard.connection().inputIsFree());
        QVERIFY(terminal.events().empty());
        QCOMPARE(program.hotKeys, QStringList());
    }

    void aHeldKeyRepeatsForTheRecordingOnly()
    {
        Program program;
        KeyboardInput keyboard;
        TestWindow terminal(keyboard.connection(), {.input = TestWindow::Input::Recorded});
        terminal.show();
        terminal.focus();
        QVERIFY(program.begin());
        keyboard.press(KEY_F5);
        QTRY_VERIFY(program.recorder.keys.size() > 5);
        QCOMPARE(program.recorder.keys.first(), QStringLiteral("96+0"));
        QCOMPARE(program.recorder.keys.count(QStringLiteral("96+0")), 1);
        QCOMPARE(program.recorder.keys.count(QStringLiteral("96+0 again")), program.recorder.keys.size() - 1);
        program.end();
        const auto heard = program.recorder.keys.size();
        QVERIFY(!keyboard.connection().inputIsFree());
        keyboard.release(KEY_F5);
        QTRY_VERIFY(keyboard.connection().inputIsFree());
        QVERIFY(terminal.events().empty());
        QCOMPARE(program.recorder.keys.size(), heard);
    }

    void aRecordingCanBeginWhileAKeyOfTheLastOneIsDown()
    {
        Program program;
        KeyboardInput keyboard;
        QVERIFY(program.begin());
        keyboard.press(KEY_A);
        QTRY_COMPARE(program.recorder.keys.size(), 1);
        program.end();
        QVERIFY(program.begin());
        keyboard.release(KEY_A);
        keyboard.tap(KEY_F6);
        QTRY_VERIFY(program.recorder.keys.contains(QStringLiteral("97+0")));
        program.end();
        QTRY_VERIFY(keyboard.connection().inputIsFree());
    }

    void aSecondBeginEndsTheFirstRecordingAndStartsAnother()
    {
        Program program;
        KeyboardInput keyboard;
        QVERIFY(program.begin());
        QVERIFY(!program.recorder.isLost);
        // The owner of the first recording does this.
        QObject::connect(&program.recording, &KeyRecording::lost, &program.recording,
                         [&program] { program.end(); });
        QVERIFY(program.begin());
        QVERIFY(program.recorder.isLost);
        keyboard.tap(KEY_C);
        QTRY_COMPARE(program.recorder.keys, QStringList{QStringLiteral("8+0")});
        program.end();
        QTRY_VERIFY(keyboard.connection().inputIsFree());
    }

    void aRecordingIsRefusedWhileAnotherClientHoldsTheKeyboard()
    {
        Program program;
        KeyboardInput keyboard;
        QVERIFY(keyboard.connection().grabKeyboard());
        QCOMPARE(program.recording.begin(), KeyRecording::Outcome::Refused);
        program.end();
        keyboard.connection().ungrabAll();
        QVERIFY(keyboard.connection().inputIsFree());
        QVERIFY(program.begin());
        QVERIFY(!keyboard.connection().inputIsFree());
    }

    void theKeyboardIsReleasedWithTheObject()
    {
        KeyboardInput keyboard;
        {
            Program program;
            QVERIFY(program.begin());
            QVERIFY(!keyboard.connection().inputIsFree());
        }
        QTRY_VERIFY(keyboard.connection().inputIsFree());
    }

    void theKeyboardIsReleasedWhenTheProcessIsKilled()
    {
        KeyboardInput keyboard;
        QProcess process;
        process.start(QCoreApplication::applicationFilePath(), {QString::fromLatin1(holdArgument)});
        QVERIFY(process.waitForReadyRead());
        QCOMPARE(process.readLine(), QByteArray("holding\n"));
        QVERIFY(!keyboard.connection().inputIsFree());
        keyboard.press(KEY_A);
        process.kill();
        QVERIFY(process.waitForFinished());
        QTRY_VERIFY(keyboard.connection().inputIsFree());
    }

    void ourWindowStaysActiveWhileRecording()
    {
        Program program;
        KeyboardInput keyboard;
        QWidget window;
        window.show();
        QVERIFY(becomesActive(window));
        QVERIFY(program.begin());
        const FocusEvents focus;
        QTRY_VERIFY(focus.out > 0);
        // The toolkit deactivates a window after a short delay. The key is held for longer than that.
        constexpr int repeats = 50;
        keyboard.press(KEY_A);
        QTRY_VERIFY(program.recorder.keys.size() > repeats);
        QCOMPARE(QApplication::activeWindow(), &window);
        keyboard.release(KEY_A);
        program.end();
        QTRY_VERIFY(focus.in > 0);
        QCOMPARE(QApplication::activeWindow(), &window);
    }

    void anotherWindowCanTakeTheFocusWhileRecording()
    {
        Program program;
        KeyboardInput keyboard;
        QWidget window;
        window.show();
        QVERIFY(becomesActive(window));
        TestWindow terminal(keyboard.connection(), {});
        terminal.show();
        QVERIFY(program.begin());
        // The window manager may still set the focus to our window.
        QTRY_VERIFY((terminal.focus(), QApplication::activeWindow() == nullptr));
    }
};

} // namespace tintwick::test

int main(int argc, char** argv)
{
    using namespace tintwick;
    if (argc > 1 && qstrcmp(argv[1], test::holdArgument) == 0) {
        const QApplication application(argc, argv);
        test::Program program;
        std::puts(program.begin() ? "holding" : "refused");
        std::fflush(stdout);
        return QApplication::exec();
    }
    return runOnPrivateDesktop<test::X11KeyRecordingTest>(argc, argv, {.tray = false});
}

#include "X11KeyRecordingTest.moc"
