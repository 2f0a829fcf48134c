#include "desktop/TintwickProcess.h"
#include "support/TestWindow.h"
#include "support/WaitUntil.h"

#include <QTest>

#include <X11/keysym.h>

using namespace tintwick;

/// The item "Settings…" in the menu of the tray icon, and the settings window.
class SettingsWindowTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theMenuOpensItWithTheKeyboardFocus();
    void openingItAgainRaisesIt();
    void closingItDoesNotQuitTheProgram();
};

void SettingsWindowTest::theMenuOpensItWithTheKeyboardFocus()
{
    PrivateDesktop desktop({});
    TestWindow other(desktop.connection(),
                     {.geometry = {40, 300, 200, 200}, .management = TestWindow::Management::Managed});
    other.show();
    other.focus();
    QVERIFY(waitUntil([&] { return desktop.connection().focusedWindow() == other.id(); }));
    TintwickProcess program(desktop);
    QVERIFY(program.openMenu());
    program.chooseSettings();
    QVERIFY(waitUntil([&] { return program.settingsWindow() != XCB_NONE; }));
    QCOMPARE(desktop.connection().geometry(program.settingsWindow()).width(), 320);
    QVERIFY(waitUntil([&] { return desktop.connection().focusedWindow() == program.settingsWindow(); }));
    QVERIFY(program.panel().isEmpty());
}

void SettingsWindowTest::openingItAgainRaisesIt()
{
    PrivateDesktop desktop({});
    TintwickProcess program(desktop);
    QVERIFY(program.openMenu());
    program.chooseSettings();
    QVERIFY(waitUntil([&] { return program.settingsWindow() != XCB_NONE; }));
    const xcb_window_t window = program.settingsWindow();
    QVERIFY(waitUntil([&] { return desktop.connection().focusedWindow() == window; }));

    // A window of another program that covers most of it.
    const QPoint inside = desktop.connection().geometry(window).bottomRight() - QPoint(5, 5);
    TestWindow other(desktop.connection(), {.geometry = desktop.screen().adjusted(100, 100, -100, -100),
                                            .management = TestWindow::Management::Managed});
    other.setColor(QColor(0, 200, 0));
    other.show();
    QVERIFY(waitUntil([&] { return desktop.pixel(inside) == qRgb(0, 200, 0); }));

    QVERIFY(program.openMenu());
    program.chooseSettings();
    QVERIFY(waitUntil([&] { return desktop.pixel(inside) == qRgb(0xF5, 0xF5, 0xF7); }));
    QVERIFY(waitUntil([&] { return desktop.connection().focusedWindow() == window; }));
    QCOMPARE(program.settingsWindow(), window);
}

void SettingsWindowTest::closingItDoesNotQuitTheProgram()
{
    PrivateDesktop desktop({});
    TintwickProcess program(desktop);
    for (int round = 0; round < 2; ++round) {
        QVERIFY(program.openMenu());
        program.chooseSettings();
        QVERIFY(waitUntil([&] {
            const xcb_window_t window = program.settingsWindow();
            return window != XCB_NONE && desktop.connection().focusedWindow() == window;
        }));
        desktop.typeKey(XK_F4, {XK_Alt_L});
        QVERIFY(waitUntil([&] { return program.settingsWindow() == XCB_NONE; }));
    }
    QVERIFY(program.startPicking());
}

QTEST_GUILESS_MAIN(SettingsWindowTest)
#include "SettingsWindowTest.moc"
