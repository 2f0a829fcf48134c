#include "desktop/TintwickProcess.h"
#include "support/WaitUntil.h"

#include <QTest>

#include <X11/keysym.h>

#include <array>
#include <cstdint>

using namespace tintwick;

using Button = PrivateDesktop::Button;

namespace {

constexpr QPoint elsewhere(200, 700);

} // namespace

/// The menu of the tray icon, and the shortcuts that it shows.
class TrayMenuTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void ctrlQQuits_data();
    void ctrlQQuits();
    void ctrlCommaOpensTheSettingsWindowFromTheMenu();
    void ctrlCommaOpensTheSettingsInThePanel();
    void ctrlCommaDoesNothingBehindASheet();
    void whileAnotherClientHoldsTheKeyboardAClickElsewhereClosesIt_data();
    void whileAnotherClientHoldsTheKeyboardAClickElsewhereClosesIt();
    void aSecondRightClickOpensItAgain();
    void theIconHasTheColorThatTheTrayReports();
};

void TrayMenuTest::ctrlQQuits_data()
{
    QTest::addColumn<QString>("in");
    for (const auto* in :
         {"menu", "menu above the panel", "panel", "settings in the panel", "settings window"}) {
        QTest::newRow(in) << QString::fromLatin1(in);
    }
}

void TrayMenuTest::ctrlQQuits()
{
    QFETCH(const QString, in);
    PrivateDesktop desktop({});
    TintwickProcess program(desktop);
    QVERIFY(program.waitForTrayIcon());
    if (in.contains(QStringLiteral("panel"))) {
        desktop.clickAt(program.trayIcon().center());
        QVERIFY(program.waitForPanelToHaveFocus());
    }
    if (in.startsWith(QStringLiteral("menu"))) {
        QVERIFY(program.openMenu());
    } else if (in == QStringLiteral("settings in the panel")) {
        desktop.typeKey(XK_comma, {XK_Control_L});
    } else if (in == QStringLiteral("settings window")) {
        QVERIFY(program.openMenu());
        program.chooseSettings();
        QVERIFY(waitUntil([&] {
            const xcb_window_t window = program.settingsWindow();
            return window != XCB_NONE && desktop.connection().focusedWindow() == window;
        }));
        // It is open already.
        desktop.typeKey(XK_comma, {XK_Control_L});
    }
    QVERIFY(program.process().isRunning());
    desktop.typeKey(XK_q, {XK_Control_L});
    QCOMPARE(program.process().waitForEnd(), 0);
}

void TrayMenuTest::ctrlCommaOpensTheSettingsWindowFromTheMenu()
{
    PrivateDesktop desktop({});
    TintwickProcess program(desktop);
    QVERIFY(program.openMenu());
    desktop.typeKey(XK_comma, {XK_Control_L});
    QVERIFY(waitUntil([&] { return program.settingsWindow() != XCB_NONE; }));
    QVERIFY(waitUntil([&] { return desktop.connection().focusedWindow() == program.settingsWindow(); }));
    QVERIFY(waitUntil([&] { return desktop.connection().inputIsFree(); }));
}

void TrayMenuTest::ctrlCommaOpensTheSettingsInThePanel()
{
    PrivateDesktop desktop({});
    TintwickProcess program(desktop);
    QVERIFY(program.waitForTrayIcon());
    desktop.clickAt(program.trayIcon().center());
    QVERIFY(program.waitForPanelToHaveFocus());
    // The pick button, which is on the dashboard only.
    const QPoint button = program.panel().topLeft() + QPoint(60, 92);
    const auto isBlue = [&] {
        const QRgb color = desktop.pixel(button);
        return qBlue(color) - qRed(color) > 60;
    };
    QVERIFY(waitUntil(isBlue));
    desktop.typeKey(XK_comma, {XK_Control_L});
    QVERIFY(waitUntil([&] { return !isBlue(); }));
    QVERIFY(program.settingsWindow() == XCB_NONE);
}

void TrayMenuTest::ctrlCommaDoesNothingBehindASheet()
{
    PrivateDesktop desktop({});
    TintwickProcess program(desktop);
    QVERIFY(program.waitForTrayIcon());
    desktop.clickAt(program.trayIcon().center());
    QVERIFY(program.waitForPanelToHaveFocus());
    const QPoint done = program.panel().topLeft() + QPoint(345, 15);
    const QRgb ground = desktop.pixel(done);
    // "Create your first palette"
    desktop.clickAt(program.panel().topLeft() + QPoint(190, 210));
    QVERIFY(waitUntil([&] { return desktop.pixel(done) != ground; }));
    desktop.typeKey(XK_comma, {XK_Control_L});
    desktop.typeKey(XK_Escape);
    QVERIFY(waitUntil([&] { return desktop.pixel(done) == ground; }));
    QVERIFY(!program.panel().isEmpty());
}

void TrayMenuTest::whileAnotherClientHoldsTheKeyboardAClickElsewhereClosesIt_data()
{
    QTest::addColumn<bool>("byShortcut");
    QTest::newRow("another program") << false;
    QTest::newRow("a shortcut that is held") << true;
}

void TrayMenuTest::whileAnotherClientHoldsTheKeyboardAClickElsewhereClosesIt()
{
    QFETCH(const bool, byShortcut);
    PrivateDesktop desktop({});
    TintwickProcess program(desktop);
    QVERIFY(program.waitForTrayIcon());
    DesktopConnection other(desktop.display());
    if (byShortcut) {
        for (const auto key : {XK_Alt_L, XK_Shift_L, XK_c}) {
            desktop.pressKey(key);
        }
        QVERIFY(waitUntil([&] { return !desktop.connection().keyboardIsFree(); }));
    } else {
        QVERIFY(other.grabKeyboard());
    }
    for (int round = 0; round < 2; ++round) {
        desktop.clickAt(program.trayIcon().center(), Button::Right);
        QVERIFY(waitUntil([&] { return !program.menuPlace().isEmpty(); }));
        static_cast<void>(desktop.settledScreenshot());
        desktop.clickAt(elsewhere);
        QVERIFY(waitUntil([&] { return program.menuPlace().isEmpty(); }));
    }
    // Its items can be chosen.
    desktop.clickAt(program.trayIcon().center(), Button::Right);
    QVERIFY(waitUntil([&] { return !program.menuPlace().isEmpty(); }));
    static_cast<void>(desktop.settledScreenshot());
    program.chooseSettings();
    QVERIFY(waitUntil([&] { return program.settingsWindow() != XCB_NONE; }));
    QVERIFY(waitUntil([&] { return other.grabPointer(); }));
}

void TrayMenuTest::aSecondRightClickOpensItAgain()
{
    PrivateDesktop desktop({});
    TintwickProcess program(desktop);
    for (int round = 0; round < 4; ++round) {
        QVERIFY(program.openMenu());
        desktop.typeKey(XK_Escape);
        QVERIFY(waitUntil([&] { return program.menuPlace().isEmpty(); }));
    }
}

void TrayMenuTest::theIconHasTheColorThatTheTrayReports()
{
    PrivateDesktop desktop({});
    DesktopConnection& connection = desktop.connection();
    TintwickProcess program(desktop);
    QVERIFY(program.waitForTrayIcon());
    const auto shows = [&](QRgb color) {
        const QImage picture = connection.screenshot(program.trayIcon());
        for (int y = 0; y < picture.height(); ++y) {
            for (int x = 0; x < picture.width(); ++x) {
                if (picture.pixel(x, y) == color) {
                    return true;
                }
            }
        }
        return false;
    };
    QVERIFY(waitUntil([&] { return shows(qRgb(0x76, 0x76, 0x76)); }));
    std::array<std::uint32_t, 12> colors{0x2020, 0x4040, 0x6060};
    const xcb_window_t tray = connection.selectionOwner("_NET_SYSTEM_TRAY_S0");
    const xcb_atom_t property = connection.atom("_NET_SYSTEM_TRAY_COLORS");
    xcb_change_property(connection.get(), XCB_PROP_MODE_REPLACE, tray, property, XCB_ATOM_CARDINAL, 32,
                        static_cast<std::uint32_t>(colors.size()), colors.data());
    connection.sync();
    QVERIFY(waitUntil([&] { return shows(qRgb(0x20, 0x40, 0x60)); }));
    xcb_delete_property(connection.get(), tray, property);
    connection.sync();
    QVERIFY(waitUntil([&] { return shows(qRgb(0x76, 0x76, 0x76)); }));
}

QTEST_GUILESS_MAIN(TrayMenuTest)
#include "TrayMenuTest.moc"
