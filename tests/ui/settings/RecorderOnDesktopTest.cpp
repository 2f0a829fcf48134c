#include "Overlay.h"
#include "Preferences.h"
#include "ShortcutRecorder.h"
#include "ShortcutRegistry.h"
#include "X11GlobalShortcuts.h"
#include "X11KeyRecording.h"
#include "X11KeyboardLayout.h"
#include "support/KeyboardInput.h"
#include "support/PrivateDesktopMain.h"
#include "support/TestWindow.h"

#include <QMenu>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

#include <xcb/xtest.h>

// The header names a member "explicit".
#define explicit explicit_
#include <xcb/xkb.h>
#undef explicit

namespace tintwick::test {

using namespace Qt::StringLiterals;

namespace {

constexpr int super = 0x100, shift = 0x200, alt = 0x800;
constexpr int keyB = 11, keyC = 8, keyD = 2;
constexpr std::uint8_t keycodeOffset = 8;

/// Counts the bells of the desktop.
class Bell final
{
public:
    Bell()
    {
        auto* const c = m_connection.get();
        const auto* const extension = xcb_get_extension_data(c, &xcb_xkb_id);
        m_xkbEvent = extension->first_event;
        const ServerReply<xcb_xkb_use_extension_reply_t> xkb(
            xcb_xkb_use_extension_reply(c, xcb_xkb_use_extension(c, 1, 0), nullptr));
        constexpr std::uint16_t bell = XCB_XKB_EVENT_TYPE_BELL_NOTIFY;
        xcb_xkb_select_events_aux(c, XCB_XKB_ID_USE_CORE_KBD, bell, 0, bell, 0, 0, nullptr);
        m_connection.sync();
    }
    /// The number of bells until now.
    [[nodiscard]] int count()
    {
        m_connection.sync();
        while (const ServerReply<xcb_generic_event_t> event{xcb_poll_for_event(m_connection.get())}) {
            m_count += event->response_type == m_xkbEvent && event->pad0 == XCB_XKB_BELL_NOTIFY ? 1 : 0;
        }
        return m_count;
    }

private:
    DesktopConnection m_connection{qgetenv("DISPLAY")};
    std::uint8_t m_xkbEvent = 0;
    int m_count = 0;
};

/// A recorder in a window with the flags of the main panel, in a program with one shortcut.
struct Scene
{
    static constexpr QPoint onField{120, 52};

    QTemporaryDir folder;
    Preferences preferences{folder.filePath(u"settings.conf"_s)};
    std::unique_ptr<XcbConnection> connection = XcbConnection::open();
    X11GlobalShortcuts desktop{*connection};
    XkbKeymap keymap{*connection};
    X11KeyboardLayout layout{*connection, keymap};
    X11KeyRecording keys{*connection, keymap};
    ShortcutRegistry registry{desktop, layout, preferences};
    QMenu menu;
    KeyboardInput keyboard;
    Bell bell;
    int picks = 0;

    QWidget panel{nullptr, Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint};
    ShortcutRecorder* recorder = nullptr;

    Scene()
    {
        QObject::connect(&registry, &ShortcutRegistry::deactivated, &registry, [this] { ++picks; });
        registry.start();
        menu.addAction(u"Quit Tintwick"_s)->setShortcut(Qt::CTRL | Qt::Key_Q);
        panel.setFixedSize(380, 580);
        recorder =
            new ShortcutRecorder({registry, &keys, layout, menu}, ShortcutAction::ActivatePicker, panel);
        recorder->setParent(&panel);
        recorder->move(100, 40);
        panel.setFocus();
        panel.move(200, 100);
        panel.show();
        panel.activateWindow();
        [&] { QVERIFY(QTest::qWaitForWindowActive(&panel)); }();
    }

    /// Reads the panel's position from the server, because the toolkit may not have it yet.
    void click(QPoint inPanel)
    {
        const auto window = static_cast<xcb_window_t>(panel.winId());
        const QPoint place = keyboard.connection().geometry(window).topLeft() + inPanel;
        auto* const c = keyboard.connection().get();
        const auto fake = [&](std::uint8_t type, std::uint8_t detail) {
            xcb_test_fake_input(c, type, detail, XCB_CURRENT_TIME, keyboard.connection().root(),
                                static_cast<std::int16_t>(place.x()), static_cast<std::int16_t>(place.y()),
                                0);
        };
        fake(XCB_MOTION_NOTIFY, 0);
        fake(XCB_BUTTON_PRESS, 1);
        fake(XCB_BUTTON_RELEASE, 1);
        keyboard.connection().sync();
    }
    [[nodiscard]] bool startByClick()
    {
        click(onField);
        return QTest::qWaitFor([this] { return recorder->isRecording(); });
    }

    /// Call it repeatedly: the window manager may still be giving the focus to the panel.
    [[nodiscard]] bool isFocusGivenTo(TestWindow& other) const
    {
        if (panel.isActiveWindow()) {
            other.focus();
        }
        return !panel.isActiveWindow();
    }

    [[nodiscard]] std::optional<Shortcut> stored() const
    {
        return registry.shortcut(ShortcutAction::ActivatePicker);
    }
    [[nodiscard]] bool keyboardIsFree() { return keyboard.connection().inputIsFree(); }
    [[nodiscard]] Overlay* alert() const { return Overlay::of(panel); }
};

const Shortcut altShiftC{keyC, alt | shift};

} // namespace

/// The recorder with real keys and a window manager.
class RecorderOnDesktopTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aSuperCombinationIsRecordedAndWorksAtOnce()
    {
        Scene scene;
        QVERIFY(scene.startByClick());
        QVERIFY(!scene.keyboardIsFree());
        scene.keyboard.chord({KEY_LEFTMETA, KEY_B});
        QTRY_COMPARE(scene.stored(), (Shortcut{keyB, super}));
        QCOMPARE(scene.recorder->text(), u"⌘B"_s);
        QVERIFY(!scene.recorder->isRecording());
        QTRY_VERIFY(scene.keyboardIsFree());
        QCOMPARE(scene.picks, 0);

        scene.keyboard.chord({KEY_LEFTMETA, KEY_B});
        QTRY_COMPARE(scene.picks, 1);
        scene.keyboard.chord({KEY_LEFTALT, KEY_LEFTSHIFT, KEY_C});
        scene.keyboard.chord({KEY_LEFTMETA, KEY_B});
        QTRY_COMPARE(scene.picks, 2);
    }

    void theCurrentShortcutIsRecordedAndDoesNotPick()
    {
        Scene scene;
        QVERIFY(scene.startByClick());
        scene.keyboard.chord({KEY_LEFTALT, KEY_LEFTSHIFT, KEY_C});
        QTRY_VERIFY(!scene.recorder->isRecording());
        QTRY_VERIFY(scene.keyboardIsFree());
        QCOMPARE(scene.stored(), altShiftC);
        QCOMPARE(scene.picks, 0);
        scene.keyboard.chord({KEY_LEFTALT, KEY_LEFTSHIFT, KEY_C});
        QTRY_COMPARE(scene.picks, 1);
    }

    void aRefusedKeyRingsTheBell()
    {
        Scene scene;
        QVERIFY(scene.startByClick());
        QCOMPARE(scene.bell.count(), 0);
        scene.keyboard.tap(KEY_C);
        QTRY_COMPARE(scene.bell.count(), 1);
        scene.keyboard.chord({KEY_LEFTSHIFT, KEY_C});
        QTRY_COMPARE(scene.bell.count(), 2);
        QVERIFY(scene.recorder->isRecording());
        QCOMPARE(scene.stored(), altShiftC);
        scene.keyboard.tap(KEY_ESC);
        QTRY_VERIFY(!scene.recorder->isRecording());
        QCOMPARE(scene.bell.count(), 2);
        QVERIFY(scene.panel.isVisible());
        QTRY_VERIFY(scene.keyboardIsFree());
    }

    void aRefusedKeyboardRingsTheBell()
    {
        Scene scene;
        QVERIFY(scene.keyboard.connection().grabKeyboard());
        scene.click(Scene::onField);
        QTRY_COMPARE(scene.bell.count(), 1);
        QVERIFY(!scene.recorder->isRecording());
        QVERIFY(!scene.registry.isPaused());
        scene.keyboard.connection().ungrabAll();
    }

    void deleteRemovesTheShortcutAndReleasesItsKeys()
    {
        Scene scene;
        QVERIFY(scene.startByClick());
        scene.keyboard.tap(KEY_BACKSPACE);
        QTRY_COMPARE(scene.stored(), std::nullopt);
        QTRY_VERIFY(scene.keyboardIsFree());
        scene.keyboard.chord({KEY_LEFTALT, KEY_LEFTSHIFT, KEY_C});
        QVERIFY(scene.startByClick());
        QCOMPARE(scene.picks, 0);
    }

    void tabMovesTheFocus()
    {
        Scene scene;
        QVERIFY(scene.startByClick());
        scene.keyboard.tap(KEY_TAB);
        QTRY_VERIFY(!scene.recorder->isRecording());
        QVERIFY(!scene.recorder->hasFocus());
        QVERIFY(scene.recorder->isAncestorOf(QApplication::focusWidget()));
        QCOMPARE(scene.stored(), altShiftC);
    }

    void returnStartsRecordingAfterTab()
    {
        Scene scene;
        scene.keyboard.tap(KEY_TAB);
        QTRY_VERIFY(scene.recorder->hasFocus());
        QVERIFY(!scene.recorder->isRecording());
        scene.keyboard.tap(KEY_ENTER);
        QTRY_VERIFY(scene.recorder->isRecording());
        scene.keyboard.chord({KEY_LEFTCTRL, KEY_F5});
        QTRY_COMPARE(scene.recorder->text(), u"⌃F5"_s);
        QVERIFY(scene.recorder->hasFocus());
        QCOMPARE(scene.bell.count(), 0);
    }

    void aShortcutOfTheWindowManagerNeedsAConfirmation()
    {
        Scene scene;
        QTRY_VERIFY(scene.registry.isTaken({keyD, super}));
        QVERIFY(scene.startByClick());
        scene.keyboard.chord({KEY_LEFTMETA, KEY_D});
        QTRY_VERIFY(scene.alert());
        QTRY_VERIFY(scene.keyboardIsFree());
        QVERIFY(scene.panel.isActiveWindow());
        // The first button keeps the old shortcut, and recording continues.
        scene.keyboard.tap(KEY_ENTER);
        QTRY_VERIFY(!scene.alert());
        QVERIFY(scene.recorder->isRecording());
        QVERIFY(!scene.keyboardIsFree());
        QCOMPARE(scene.stored(), altShiftC);

        scene.keyboard.chord({KEY_LEFTMETA, KEY_D});
        QTRY_VERIFY(scene.alert());
        QTRY_VERIFY(scene.keyboardIsFree());
        scene.keyboard.tap(KEY_TAB);
        scene.keyboard.tap(KEY_SPACE);
        QTRY_COMPARE(scene.stored(), (Shortcut{keyD, super}));
        QVERIFY(!scene.recorder->isRecording());
        QCOMPARE(scene.recorder->text(), u"⌘D"_s);
        QTRY_VERIFY(scene.keyboardIsFree());
    }

    void aShortcutOfOurMenuIsRefused()
    {
        Scene scene;
        QVERIFY(scene.startByClick());
        scene.keyboard.chord({KEY_LEFTCTRL, KEY_Q});
        QTRY_VERIFY(scene.alert());
        QTRY_VERIFY(scene.keyboardIsFree());
        scene.keyboard.tap(KEY_ESC);
        QTRY_VERIFY(!scene.alert());
        QVERIFY(scene.recorder->isRecording());
        QCOMPARE(scene.stored(), altShiftC);
        QVERIFY(scene.panel.isVisible());
    }

    void recordingEndsWhenAnotherWindowGetsTheFocus()
    {
        Scene scene;
        TestWindow terminal(scene.keyboard.connection(), {.input = TestWindow::Input::Recorded});
        terminal.show();
        QVERIFY(scene.startByClick());
        QTRY_VERIFY(scene.isFocusGivenTo(terminal));
        QVERIFY(!scene.recorder->isRecording());
        QTRY_VERIFY(scene.keyboardIsFree());
        QVERIFY(!scene.registry.isPaused());
        scene.keyboard.tap(KEY_A);
        QTRY_VERIFY(!terminal.events().empty());
    }

    void recordingStartsInAWindowThatIsNotActiveYet()
    {
        Scene scene;
        TestWindow terminal(scene.keyboard.connection(), {.geometry = QRect(0, 0, 50, 50)});
        terminal.show();
        QTRY_VERIFY(scene.isFocusGivenTo(terminal));
        QVERIFY(scene.startByClick());
        scene.panel.activateWindow();
        QTRY_VERIFY(scene.panel.isActiveWindow());
        scene.keyboard.chord({KEY_LEFTCTRL, KEY_F5});
        QTRY_COMPARE(scene.recorder->text(), u"⌃F5"_s);
        QTRY_VERIFY(scene.keyboardIsFree());
    }

    void recordingEndsWhenThePanelIsHidden()
    {
        Scene scene;
        QVERIFY(scene.startByClick());
        scene.panel.hide();
        QVERIFY(!scene.recorder->isRecording());
        QTRY_VERIFY(scene.keyboardIsFree());
    }

    void aClickOutsideTheFieldEndsRecording()
    {
        Scene scene;
        QVERIFY(scene.startByClick());
        scene.click(QPoint(190, 400));
        QTRY_VERIFY(!scene.recorder->isRecording());
        QTRY_VERIFY(scene.keyboardIsFree());
    }

    void aClickOnePixelBesideTheFieldDoesNotEndRecording()
    {
        Scene scene;
        scene.panel.setFocusPolicy(Qt::ClickFocus);
        QVERIFY(scene.startByClick());
        scene.click(QPoint(99, 52));
        scene.keyboard.tap(KEY_C);
        QTRY_COMPARE(scene.recorder->message(), u"This key needs Ctrl, Alt or Super"_s);
        QVERIFY(scene.recorder->isRecording());
        scene.click(QPoint(96, 52));
        QTRY_VERIFY(!scene.recorder->isRecording());
    }

    // This test is the last, because the window manager takes its keys again after a change of the keymap.
    void theTextFollowsTheLayout()
    {
        Scene scene;
        QCOMPARE(scene.recorder->text(), u"⌥⇧C"_s);
        QCOMPARE(QProcess::execute(u"setxkbmap"_s, {u"us"_s, u"dvorak"_s}), 0);
        QTRY_COMPARE(scene.recorder->text(), u"⌥⇧J"_s);
        QVERIFY(scene.startByClick());
        scene.keyboard.chord({KEY_LEFTCTRL, KEY_Q});
        // Dvorak has no letter of the menu at that position.
        QTRY_COMPARE(scene.recorder->text(), u"⌃'"_s);
    }
};

} // namespace tintwick::test

int main(int argc, char** argv)
{
    return tintwick::runOnPrivateDesktop<tintwick::test::RecorderOnDesktopTest>(argc, argv, {.tray = false});
}

#include "RecorderOnDesktopTest.moc"
