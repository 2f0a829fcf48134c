#include "support/NotifierHost.h"
#include "desktop/TintwickProcess.h"
#include "support/TestWindow.h"
#include "support/WaitUntil.h"

#include <QDBusArgument>
#include <QDir>
#include <QFile>
#include <QStringList>
#include <QTest>

#include <X11/keysym.h>

#include <array>
#include <cstdint>
#include <memory>

using namespace tintwick;

using namespace Qt::StringLiterals;

/// Trays that draw the icon themselves, do not report its position, and forward clicks.
class NotifierHostTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void thePanelOpensAtThePointer();
    void withTwoMonitorsItLeavesTheBarsFree_data();
    void withTwoMonitorsItLeavesTheBarsFree();
    void theClickThatHidesThePanelDoesNotShowItAgain();
    void aHostThatReportsThePressTogglesThePanel();
    void aClickElsewhereIsNotMistakenForOneOnTheIcon();
    void afterAFailedPickThePanelReturnsToItsPlace();
    void aHostThatStartsLaterGetsTheIcon();
    void theMenuOpensThePanel();
    void anInstalledSymbolIsNamedBesideThePictures_data();
    void anInstalledSymbolIsNamedBesideThePictures();

private:
    struct Desk
    {
        PrivateDesktop desktop{{.tray = false, .sessionBus = true}};
        NotifierHost host{desktop.environment().value(u"DBUS_SESSION_BUS_ADDRESS"_s)};
        TintwickProcess program{desktop};
    };
};

void NotifierHostTest::thePanelOpensAtThePointer()
{
    Desk desk;
    QVERIFY(desk.host.waitForItem());
    const QPoint onIcon(900, 10);
    desk.desktop.movePointer(onIcon);
    QVERIFY(desk.host.activate(onIcon));
    QVERIFY(desk.program.waitForPanel());
    QCOMPARE(desk.program.panel(), QRect(900 - 190, 11, 380, 580));
}

void NotifierHostTest::withTwoMonitorsItLeavesTheBarsFree_data()
{
    QTest::addColumn<TestWindow::Management>("management");
    QTest::newRow("managed bars") << TestWindow::Management::Managed;
    QTest::newRow("bars that the window manager does not know") << TestWindow::Management::Unmanaged;
}

void NotifierHostTest::withTwoMonitorsItLeavesTheBarsFree()
{
    QFETCH(const TestWindow::Management, management);
    Desk desk;
    desk.desktop.setMonitors({{"left", {0, 0, 640, 800}, true}, {"right", {640, 0, 640, 800}}});
    DesktopConnection& connection = desk.desktop.connection();
    // Left, right, top and bottom, and then the start and the end of each.
    using Strut = std::array<std::uint32_t, 12>;
    const auto makeBar = [&](const QRect& place, const Strut& strut) {
        auto bar = std::make_unique<TestWindow>(
            connection, TestWindow::Options{.geometry = place, .management = management});
        const xcb_atom_t dock = connection.atom("_NET_WM_WINDOW_TYPE_DOCK");
        xcb_change_property(connection.get(), XCB_PROP_MODE_REPLACE, bar->id(),
                            connection.atom("_NET_WM_WINDOW_TYPE"), XCB_ATOM_ATOM, 32, 1, &dock);
        xcb_change_property(connection.get(), XCB_PROP_MODE_REPLACE, bar->id(),
                            connection.atom("_NET_WM_STRUT_PARTIAL"), XCB_ATOM_CARDINAL, 32,
                            static_cast<std::uint32_t>(strut.size()), strut.data());
        bar->show();
        return bar;
    };
    const auto onTheRight = makeBar({1257, 0, 23, 800}, {0, 23, 0, 0, 0, 0, 0, 799});
    const auto onTop = makeBar({640, 0, 640, 24}, {0, 0, 24, 0, 0, 0, 0, 0, 640, 1279});
    QVERIFY(waitUntil(
        [&] { return connection.isViewable(onTheRight->id()) && connection.isViewable(onTop->id()); }));
    QVERIFY(desk.host.waitForItem());

    const QPoint onRightMonitor(1200, 5);
    desk.desktop.movePointer(onRightMonitor);
    QVERIFY(desk.host.activate(onRightMonitor));
    QVERIFY(desk.program.waitForPanel());
    QVERIFY(waitUntil([&] { return desk.program.panel() == QRect(1257 - 8 - 380, 24, 380, 580); }));
    QVERIFY(desk.host.activate(onRightMonitor));
    QVERIFY(desk.program.waitForPanelToHide());

    // The other monitor has no bar.
    const QPoint onLeftMonitor(300, 5);
    desk.desktop.movePointer(onLeftMonitor);
    QVERIFY(desk.host.activate(onLeftMonitor));
    QVERIFY(desk.program.waitForPanel());
    QVERIFY(waitUntil([&] { return desk.program.panel() == QRect(300 - 190, 6, 380, 580); }));
}

void NotifierHostTest::theClickThatHidesThePanelDoesNotShowItAgain()
{
    Desk desk;
    QVERIFY(desk.host.waitForItem());
    const QPoint onIcon(900, 5);
    desk.desktop.movePointer(onIcon);
    QVERIFY(desk.host.activate(onIcon));
    QVERIFY(desk.program.waitForPanel());

    // The host's window receives the press and reports it a little later.
    desk.desktop.click();
    QVERIFY(desk.program.waitForPanelToHide());
    QVERIFY(desk.host.activate(onIcon));
    QVERIFY(desk.program.panel().isEmpty());

    QVERIFY(desk.host.activate(onIcon));
    QVERIFY(desk.program.waitForPanel());
}

void NotifierHostTest::aHostThatReportsThePressTogglesThePanel()
{
    using Button = PrivateDesktop::Button;
    Desk desk;
    QVERIFY(desk.host.waitForItem());
    const QPoint onIcon(900, 5);
    desk.desktop.movePointer(onIcon);
    for (int round = 0; round < 2; ++round) {
        desk.desktop.press(Button::Left);
        QVERIFY(desk.host.activate(onIcon));
        QVERIFY(desk.program.waitForPanel());
        desk.desktop.release(Button::Left);
        static_cast<void>(desk.desktop.settledScreenshot());
        QVERIFY(!desk.program.panel().isEmpty());

        desk.desktop.press(Button::Left);
        QVERIFY(desk.host.activate(onIcon));
        QVERIFY(desk.program.waitForPanelToHide());
        desk.desktop.release(Button::Left);
    }
}

void NotifierHostTest::aClickElsewhereIsNotMistakenForOneOnTheIcon()
{
    Desk desk;
    QVERIFY(desk.host.waitForItem());
    const QPoint onIcon(900, 5);
    desk.desktop.movePointer(onIcon);
    QVERIFY(desk.host.activate(onIcon));
    QVERIFY(desk.program.waitForPanel());
    desk.desktop.movePointer({100, 700});
    desk.desktop.click();
    QVERIFY(desk.program.waitForPanelToHide());
    desk.desktop.movePointer(onIcon);
    QVERIFY(desk.host.activate(onIcon));
    QVERIFY(desk.program.waitForPanel());
}

void NotifierHostTest::afterAFailedPickThePanelReturnsToItsPlace()
{
    Desk desk;
    QVERIFY(desk.host.waitForItem());
    const QPoint onIcon(300, 5);
    desk.desktop.movePointer(onIcon);
    QVERIFY(desk.host.activate(onIcon));
    QVERIFY(desk.program.waitForPanel());
    const QRect place = desk.program.panel();
    DesktopConnection other(desk.desktop.display());
    QVERIFY(other.grabKeyboard());
    desk.desktop.clickAt(place.topLeft() + QPoint(190, 92));
    // The accent colour of the notice.
    QVERIFY(waitUntil(
        [&] { return desk.desktop.pixel(place.topLeft() + QPoint(25, 80)) == qRgb(97, 102, 224); }));
    QCOMPARE(desk.program.panel(), place);
}

// The icon moves from a tray that embeds windows to the host, and back when the host has ended.
void NotifierHostTest::aHostThatStartsLaterGetsTheIcon()
{
    PrivateDesktop desktop({.sessionBus = true});
    const QString bus = desktop.environment().value(u"DBUS_SESSION_BUS_ADDRESS"_s);
    TintwickProcess program(desktop);
    QVERIFY(program.waitForTrayIcon());
    for (int round = 0; round < 2; ++round) {
        {
            const NotifierHost host(bus);
            QVERIFY(host.waitForItem());
            QVERIFY(waitUntil([&] { return program.trayIcon().isEmpty(); }));
            const QPoint onIcon(900, 10);
            desktop.movePointer(onIcon);
            QVERIFY(host.activate(onIcon));
            QVERIFY(program.waitForPanel());
            QVERIFY(host.activate(onIcon));
            QVERIFY(program.waitForPanelToHide());
            QCOMPARE(host.items().size(), 1);
        }
        QVERIFY(program.waitForTrayIcon());
    }
}

// Some hosts open the menu on every click.
void NotifierHostTest::theMenuOpensThePanel()
{
    Desk desk;
    QVERIFY(desk.host.waitForItem());
    QCOMPARE(desk.host.menu(), (QStringList{u"Open Tintwick"_s,
                                            {},
                                            u"Pick Color (⌥⇧C)"_s,
                                            u"Pick in 3 s"_s,
                                            u"Pick in 5 s"_s,
                                            {},
                                            u"Settings…"_s,
                                            {},
                                            u"Quit Tintwick"_s}));
    desk.host.choose(u"Open Tintwick"_s);
    QVERIFY(desk.program.waitForPanel());
    desk.host.choose(u"Pick Color (⌥⇧C)"_s);
    QVERIFY(desk.program.waitForLoupe());
    desk.desktop.typeKey(XK_Escape);
    QVERIFY(desk.program.waitForPickToEnd());
    desk.host.choose(u"Quit Tintwick"_s);
    QCOMPARE(desk.program.process().waitForEnd(), 0);
}

void NotifierHostTest::anInstalledSymbolIsNamedBesideThePictures_data()
{
    QTest::addColumn<bool>("isInstalled");
    QTest::addColumn<QString>("name");
    QTest::newRow("installed") << true << u"org.tintwick.Tintwick-symbolic"_s;
    QTest::newRow("not installed") << false << QString();
}

void NotifierHostTest::anInstalledSymbolIsNamedBesideThePictures()
{
    QFETCH(const bool, isInstalled);
    QFETCH(const QString, name);
    PrivateDesktop desktop({.tray = false, .sessionBus = true});
    const QString icons = desktop.dataHome() + u"/icons/hicolor"_s;
    QVERIFY(QDir().mkpath(icons + u"/symbolic/apps"_s));
    const auto write = [&](const QString& path, const QByteArray& content) {
        QFile file(icons + path);
        return file.open(QIODevice::WriteOnly) && file.write(content) == content.size();
    };
    QVERIFY(write(u"/index.theme"_s,
                  "[Icon Theme]\nName=Hicolor\nDirectories=symbolic/apps\n\n[symbolic/apps]\n"
                  "Size=16\nMinSize=8\nMaxSize=512\nType=Scalable\n"));
    const QByteArray drawing = R"(<svg xmlns="http://www.w3.org/2000/svg" width="16" height="16"/>)";
    QVERIFY(!isInstalled || write(u"/symbolic/apps/org.tintwick.Tintwick-symbolic.svg"_s, drawing));
    NotifierHost host(desktop.environment().value(u"DBUS_SESSION_BUS_ADDRESS"_s));
    const TintwickProcess program(desktop);
    QVERIFY(host.waitForItem());
    QCOMPARE(host.property(u"IconName"_s).toString(), name);
    const auto pictures = host.property(u"IconPixmap"_s).value<QDBusArgument>();
    QCOMPARE(pictures.currentType(), QDBusArgument::ArrayType);
    pictures.beginArray();
    QVERIFY(!pictures.atEnd());
}

QTEST_GUILESS_MAIN(NotifierHostTest)
#include "NotifierHostTest.moc"
