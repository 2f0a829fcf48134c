#include "Preferences.h"
#include "ShortcutRegistry.h"
#include "X11GlobalShortcuts.h"
#include "X11KeyboardLayout.h"
#include "support/KeyCombination.h"
#include "support/KeyboardInput.h"
#include "support/PrivateDesktopMain.h"

#include <QAbstractNativeEventFilter>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenu>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

namespace tintwick::test {

namespace {

/// The shortcuts of the program on a real keyboard.
struct Program
{
    QTemporaryDir folder;
    Preferences preferences{folder.filePath(QStringLiteral("settings.conf"))};
    std::unique_ptr<XcbConnection> connection = XcbConnection::open();
    X11GlobalShortcuts desktop{*connection};
    XkbKeymap keymap{*connection};
    X11KeyboardLayout layout{*connection, keymap};
    ShortcutRegistry registry{desktop, layout, preferences};
    QStringList calls;

    Program()
    {
        QObject::connect(&registry, &ShortcutRegistry::activated, &registry,
                         [this] { calls << QStringLiteral("down"); });
        QObject::connect(&registry, &ShortcutRegistry::deactivated, &registry,
                         [this] { calls << QStringLiteral("up"); });
        registry.start();
    }
};

/// A menu that collects the keys it gets.
class Menu final : public QMenu
{
public:
    QList<int> keys;

    Menu()
    {
        for (const auto* title : {"Close", "Cut", "Copy"}) {
            addAction(QString::fromLatin1(title));
        }
    }

protected:
    void keyPressEvent(QKeyEvent* event) override
    {
        keys << event->key();
        QMenu::keyPressEvent(event);
    }
};

/// Counts the key presses that the server sends to the toolkit.
class ToolkitPresses final : public QAbstractNativeEventFilter
{
public:
    ToolkitPresses() { QCoreApplication::instance()->installNativeEventFilter(this); }
    [[nodiscard]] int count() const { return m_count; }

private:
    bool nativeEventFilter(const QByteArray& /*eventType*/, void* message, qintptr* /*result*/) override
    {
        if (static_cast<const xcb_generic_event_t*>(message)->response_type == XCB_KEY_PRESS) {
            ++m_count;
        }
        return false;
    }

    int m_count = 0;
};

[[nodiscard]] bool keyboardIsGrabbed(KeyboardInput& keyboard)
{
    const bool isFree = keyboard.connection().grabKeyboard();
    keyboard.connection().ungrabAll();
    keyboard.connection().sync();
    return !isFree;
}

const QStringList once{QStringLiteral("down"), QStringLiteral("up")};

} // namespace

class OpenMenuTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void inAnOpenMenuTheShortcutIsReportedOnceAndTheMenuGetsNoKey_data()
    {
        QTest::addColumn<QList<int>>("presses");
        QTest::addColumn<QList<int>>("releases");
        QTest::addColumn<int>("lockKey");
        const QList<int> keys{KEY_LEFTALT, KEY_LEFTSHIFT, KEY_C};
        const QList<int> keyFirst{KEY_C, KEY_LEFTSHIFT, KEY_LEFTALT};
        QTest::newRow("key released first") << keys << keyFirst << 0;
        QTest::newRow("modifiers released first") << keys << keys << 0;
        QTest::newRow("with Num Lock on") << keys << keyFirst << KEY_NUMLOCK;
        QTest::newRow("with Caps Lock on") << keys << keyFirst << KEY_CAPSLOCK;
        QTest::newRow("Shift before Alt") << QList<int>{KEY_LEFTSHIFT, KEY_LEFTALT, KEY_C} << keyFirst << 0;
    }
    void inAnOpenMenuTheShortcutIsReportedOnceAndTheMenuGetsNoKey()
    {
        QFETCH(const QList<int>, presses);
        QFETCH(const QList<int>, releases);
        QFETCH(const int, lockKey);
        Program program;
        KeyboardInput keyboard;
        if (lockKey != 0) {
            keyboard.tap(lockKey);
        }
        Menu menu;
        menu.popup(QPoint(100, 100));
        QTRY_VERIFY(keyboardIsGrabbed(keyboard));
        for (const int key : presses) {
            keyboard.press(key);
        }
        for (const int key : releases) {
            keyboard.release(key);
        }
        QTRY_COMPARE(program.calls, once);
        QVERIFY(menu.isVisible());

        keyboard.tap(KEY_DOWN);
        QTRY_VERIFY(menu.keys.contains(Qt::Key_Down));
        QVERIFY(!menu.keys.contains(Qt::Key_C));
        QVERIFY(!menu.keys.contains(Qt::Key_Alt));
        QVERIFY(menu.isVisible());
        QCOMPARE(program.calls, once);
    }

    void aShortcutHeldInAnOpenMenuIsReportedOnce()
    {
        QCOMPARE(QProcess::execute(QStringLiteral("xset"), {QStringLiteral("r"), QStringLiteral("rate"),
                                                            QStringLiteral("60"), QStringLiteral("100")}),
                 0);
        Program program;
        KeyboardInput keyboard;
        Menu menu;
        menu.popup(QPoint(100, 100));
        QTRY_VERIFY(keyboardIsGrabbed(keyboard));

        const ToolkitPresses toolkit;
        keyboard.press(KEY_LEFTALT);
        keyboard.press(KEY_LEFTSHIFT);
        keyboard.press(KEY_C);
        QTRY_VERIFY(toolkit.count() >= 8);
        QCOMPARE(program.calls, QStringList{QStringLiteral("down")});
        keyboard.release(KEY_C);
        keyboard.release(KEY_LEFTSHIFT);
        keyboard.release(KEY_LEFTALT);
        QTRY_COMPARE(program.calls, once);
        keyboard.tap(KEY_UP);
        QTRY_VERIFY(menu.keys.contains(Qt::Key_Up));
        QVERIFY(!menu.keys.contains(Qt::Key_C));
        QCOMPARE(program.calls, once);
    }

    void otherCombinationsReachTheMenu()
    {
        Program program;
        KeyboardInput keyboard;
        Menu menu;
        menu.popup(QPoint(100, 100));
        QTRY_VERIFY(keyboardIsGrabbed(keyboard));
        keyboard.chord({KEY_LEFTSHIFT, KEY_X});
        QTRY_VERIFY(menu.keys.contains(Qt::Key_X));
        QCOMPARE(program.calls, QStringList());
    }

    void afterTheMenuClosesTheShortcutIsGrabbedAgain()
    {
        Program program;
        KeyboardInput keyboard;
        {
            Menu menu;
            menu.popup(QPoint(100, 100));
            QTRY_VERIFY(keyboardIsGrabbed(keyboard));
            keyboard.tap(KEY_ESC);
            QTRY_VERIFY(!menu.isVisible());
        }
        QTRY_VERIFY(!keyboardIsGrabbed(keyboard));
        keyboard.chord({KEY_LEFTALT, KEY_LEFTSHIFT, KEY_C});
        QTRY_COMPARE(program.calls, once);
    }

    void aMenuThatIsDestroyedWhileOpenCountsAsClosed()
    {
        Program program;
        KeyboardInput keyboard;
        auto menu = std::make_unique<Menu>();
        menu->popup(QPoint(100, 100));
        QTRY_VERIFY(keyboardIsGrabbed(keyboard));
        menu.reset();
        QTRY_VERIFY(!keyboardIsGrabbed(keyboard));
        keyboard.chord({KEY_LEFTALT, KEY_LEFTSHIFT, KEY_C});
        QTRY_COMPARE(program.calls, once);
    }

    void aShortcutStoredWhileAMenuIsOpenWorksThereAndAfterwards()
    {
        Program program;
        KeyboardInput keyboard;
        Menu menu;
        menu.popup(QPoint(100, 100));
        QTRY_VERIFY(keyboardIsGrabbed(keyboard));
        program.registry.setShortcut(ShortcutAction::ActivatePicker,
                                     Shortcut{keycode::v, modifier::alt | modifier::shift});
        keyboard.chord({KEY_LEFTALT, KEY_LEFTSHIFT, KEY_V});
        QTRY_COMPARE(program.calls, once);
        QVERIFY(menu.isVisible());
        menu.close();
        QTRY_VERIFY(!keyboardIsGrabbed(keyboard));
        keyboard.chord({KEY_LEFTALT, KEY_LEFTSHIFT, KEY_V});
        QTRY_COMPARE(program.calls, once + once);
    }

    void aShortcutTakenWhileAMenuIsOpenIsRefusedOnceWhenItCloses()
    {
        constexpr std::uint16_t alt = 0x08, shift = 0x01;
        Program program;
        KeyboardInput keyboard;
        QSignalSpy refusals(&program.desktop, &GlobalShortcuts::refused);
        Menu menu;
        menu.popup(QPoint(100, 100));
        QTRY_VERIFY(keyboardIsGrabbed(keyboard));
        QVERIFY((KeyCombination{KEY_C, alt | shift}.take(keyboard.connection())));
        menu.close();
        QCOMPARE(refusals.count(), 1);
        QCOMPARE(refusals.at(0).at(0).toString(), QStringLiteral("activatePicker"));
        QTRY_VERIFY(!keyboardIsGrabbed(keyboard));
        menu.popup(QPoint(100, 100));
        QTRY_VERIFY(keyboardIsGrabbed(keyboard));
        menu.close();
        QCOMPARE(refusals.count(), 1);
        QCOMPARE(program.calls, QStringList());
    }

    void theShortcutWorksInTheMenuOfATextField()
    {
        Program program;
        KeyboardInput keyboard;
        QLineEdit field;
        const std::unique_ptr<QMenu> menu(field.createStandardContextMenu());
        menu->popup(QPoint(100, 100));
        QTRY_VERIFY(keyboardIsGrabbed(keyboard));
        keyboard.chord({KEY_LEFTALT, KEY_LEFTSHIFT, KEY_C});
        QTRY_COMPARE(program.calls, once);
        QVERIFY(menu->isVisible());
    }
};

} // namespace tintwick::test

int main(int argc, char** argv)
{
    return tintwick::runOnPrivateDesktop<tintwick::test::OpenMenuTest>(argc, argv, {.tray = false});
}

#include "OpenMenuTest.moc"
