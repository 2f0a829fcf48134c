#include "support/PrivateDesktop.h"
#include "support/Pattern.h"
#include "support/TestWindow.h"
#include "support/WaitUntil.h"

#include <QDir>
#include <QFile>
#include <QTest>

#include <X11/keysym.h>

#include <memory>
#include <set>

using namespace tintwick;

/// Tests of the private desktop that all desktop tests use.
class PrivateDesktopTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void allPixelsOfThePictureDiffer();
    void windowsShowTheirColorsAndPictures();
    void translucentWindowsAreBlendedByACompositor();
    void shapedWindowsLetTheScreenThrough();
    void keysAndButtonsReachTheWindowUnderThePointer();
    void aGrabKeepsInputFromOtherClients();
    void aHiddenPointerIsRecognised();
    void aManagedWindowGetsAFrame();
    void theClipboardIsSharedBetweenPrograms();
    void monitorsCanBeLaidOutAndRemoved();
    void everyHelperStarts();
    void aProgramReportsHowItEnded();
    void aDesktopRemovesItsFilesWhenItEnds();
};

void PrivateDesktopTest::allPixelsOfThePictureDiffer()
{
    const QImage picture = patternImage({0, 0, 640, 480});
    std::set<QRgb> colors;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            colors.insert(picture.pixel(x, y));
        }
    }
    QCOMPARE(colors.size(), std::size_t{640 * 480});
    QCOMPARE(picture.pixel(3, 2), patternPixel(3, 2));
}

void PrivateDesktopTest::windowsShowTheirColorsAndPictures()
{
    PrivateDesktop desktop({.size = {640, 480}, .windowManager = false, .tray = false});
    TestWindow picture(desktop.connection(), {.geometry = desktop.screen()});
    picture.setPicture(patternImage(desktop.screen()));
    picture.show();
    QCOMPARE(desktop.screenshot(), patternImage(desktop.screen()));

    DesktopConnection other(desktop.display());
    TestWindow patch(other, {.geometry = {100, 100, 50, 40}});
    patch.setColor(QColor(1, 2, 3));
    patch.show();
    QCOMPARE(desktop.pixel({100, 100}), qRgb(1, 2, 3));
    QCOMPARE(desktop.pixel({149, 139}), qRgb(1, 2, 3));
    QCOMPARE(desktop.pixel({150, 139}), patternPixel(150, 139));
    patch.move({300, 200});
    QCOMPARE(desktop.pixel({100, 100}), patternPixel(100, 100));
    QCOMPARE(desktop.pixel({300, 200}), qRgb(1, 2, 3));
    patch.lower();
    QCOMPARE(desktop.pixel({300, 200}), patternPixel(300, 200));
}

void PrivateDesktopTest::translucentWindowsAreBlendedByACompositor()
{
    PrivateDesktop desktop(
        {.size = {640, 480}, .compositor = PrivateDesktop::Compositor::Plain, .tray = false});
    TestWindow below(desktop.connection(), {.geometry = desktop.screen()});
    below.setColor(QColor(200, 100, 0));
    below.show();
    TestWindow glass(desktop.connection(),
                     {.geometry = {50, 50, 100, 100}, .visual = TestWindow::Visual::Translucent});
    glass.setColor(QColor(0, 0, 255, 51));
    glass.show();
    // A fifth of the blue over four fifths of the orange.
    QVERIFY(waitUntil([&] { return desktop.pixel({100, 100}) == qRgb(160, 80, 51); }));
    QCOMPARE(desktop.pixel({200, 200}), qRgb(200, 100, 0));
}

void PrivateDesktopTest::shapedWindowsLetTheScreenThrough()
{
    PrivateDesktop desktop({.size = {640, 480}, .windowManager = false, .tray = false});
    TestWindow below(desktop.connection(), {.geometry = desktop.screen()});
    below.setColor(Qt::green);
    below.show();
    TestWindow shaped(desktop.connection(), {.geometry = {0, 0, 100, 100}});
    shaped.setColor(Qt::red);
    shaped.setShape({{0, 0, 50, 50}, {50, 50, 50, 50}});
    shaped.show();
    QCOMPARE(desktop.pixel({10, 10}), qRgb(255, 0, 0));
    QCOMPARE(desktop.pixel({60, 60}), qRgb(255, 0, 0));
    QCOMPARE(desktop.pixel({60, 10}), qRgb(0, 255, 0));
}

void PrivateDesktopTest::keysAndButtonsReachTheWindowUnderThePointer()
{
    PrivateDesktop desktop({.size = {640, 480}, .windowManager = false, .tray = false});
    TestWindow window(desktop.connection(),
                      {.geometry = desktop.screen(), .input = TestWindow::Input::Recorded});
    window.show();
    window.focus();
    desktop.movePointer({20, 30});
    QCOMPARE(desktop.pointer(), QPoint(20, 30));
    window.forgetEvents();

    desktop.click();
    desktop.scroll(-1);
    desktop.typeKey(XK_Escape);
    const auto events = window.events();
    QCOMPARE(events.size(), std::size_t{6});
    QCOMPARE(events[0], (TestWindow::InputEvent{XCB_BUTTON_PRESS, 1}));
    QCOMPARE(events[1], (TestWindow::InputEvent{XCB_BUTTON_RELEASE, 1}));
    QCOMPARE(events[2], (TestWindow::InputEvent{XCB_BUTTON_PRESS, 5}));
    QCOMPARE(events[3], (TestWindow::InputEvent{XCB_BUTTON_RELEASE, 5}));
    QCOMPARE(events[4].type, std::uint8_t{XCB_KEY_PRESS});
    QCOMPARE(events[5].type, std::uint8_t{XCB_KEY_RELEASE});
}

void PrivateDesktopTest::aGrabKeepsInputFromOtherClients()
{
    PrivateDesktop desktop({.size = {640, 480}, .windowManager = false, .tray = false});
    TestWindow window(desktop.connection(),
                      {.geometry = desktop.screen(), .input = TestWindow::Input::Recorded});
    window.show();
    window.focus();
    window.forgetEvents();
    DesktopConnection other(desktop.display());
    QVERIFY(other.grabPointer());
    QVERIFY(other.grabKeyboard());
    desktop.movePointer({50, 60});
    desktop.click();
    desktop.typeKey(XK_a);
    QCOMPARE(window.events().size(), std::size_t{0});
    QVERIFY(!desktop.connection().grabPointer());

    other.ungrabAll();
    desktop.click();
    QCOMPARE(window.events().size(), std::size_t{2});
}

void PrivateDesktopTest::aHiddenPointerIsRecognised()
{
    PrivateDesktop desktop({.size = {640, 480}, .windowManager = false, .tray = false});
    QVERIFY(desktop.pointerIsVisible());

    DesktopConnection other(desktop.display());
    const xcb_pixmap_t nothing = other.newId();
    xcb_create_pixmap(other.get(), 1, nothing, other.root(), 1, 1);
    const xcb_cursor_t blank = other.newId();
    xcb_create_cursor(other.get(), blank, nothing, nothing, 0, 0, 0, 0, 0, 0, 0, 0);
    TestWindow cover(other, {.geometry = desktop.screen()});
    xcb_change_window_attributes(other.get(), cover.id(), XCB_CW_CURSOR, &blank);
    cover.show();
    desktop.movePointer({77, 88});
    QVERIFY(!desktop.pointerIsVisible());
    cover.hide();
    QVERIFY(desktop.pointerIsVisible());
}

void PrivateDesktopTest::aManagedWindowGetsAFrame()
{
    PrivateDesktop desktop({.size = {640, 480}, .tray = false});
    TestWindow window(desktop.connection(),
                      {.geometry = {100, 100, 200, 150}, .management = TestWindow::Management::Managed});
    window.show();
    QVERIFY(waitUntil([&] { return desktop.connection().hasProperty(window.id(), "_NET_FRAME_EXTENTS"); }));
}

void PrivateDesktopTest::theClipboardIsSharedBetweenPrograms()
{
    PrivateDesktop desktop({.size = {640, 480}, .windowManager = false, .tray = false});
    QCOMPARE(desktop.clipboard(), QByteArray());
    desktop.takeClipboard("first");
    QCOMPARE(desktop.clipboard(), QByteArray("first"));
    desktop.takeClipboard("second");
    QCOMPARE(desktop.clipboard(), QByteArray("second"));
}

void PrivateDesktopTest::monitorsCanBeLaidOutAndRemoved()
{
    PrivateDesktop desktop({.size = {640, 480}, .windowManager = false, .tray = false});
    desktop.setMonitors({{"left", {0, 100, 200, 200}}, {"right", {200, 0, 400, 480}, true}});
    const auto names = [&] {
        const auto xrandr = desktop.start(QStringLiteral("xrandr"), {QStringLiteral("--listmonitors")});
        return xrandr->waitForEnd() ? xrandr->standardOutput() : QByteArray();
    };
    QVERIFY2(names().contains("left 200/300x200/300+0+100"), names().constData());
    QVERIFY2(names().contains("*right 400/300x480/300+200+0"), names().constData());
    QVERIFY(names().startsWith("Monitors: 2"));
    desktop.removeMonitor("right");
    QVERIFY(names().startsWith("Monitors: 1"));
}

void PrivateDesktopTest::everyHelperStarts()
{
    PrivateDesktop desktop(
        {.compositor = PrivateDesktop::Compositor::WithShadows, .tray = true, .sessionBus = true});
    QVERIFY(desktop.connection().selectionOwner("_NET_WM_CM_S0") != XCB_NONE);
    QVERIFY(desktop.connection().selectionOwner("_NET_SYSTEM_TRAY_S0") != XCB_NONE);
    QVERIFY(desktop.environment()
                .value(QStringLiteral("DBUS_SESSION_BUS_ADDRESS"))
                .startsWith(QLatin1StringView("unix:")));
}

void PrivateDesktopTest::aProgramReportsHowItEnded()
{
    PrivateDesktop desktop({.size = {640, 480}, .windowManager = false, .tray = false});
    const auto failing = desktop.start(
        QStringLiteral("sh"), {QStringLiteral("-c"), QStringLiteral("echo out; echo err >&2; exit 3")});
    QCOMPARE(failing->waitForEnd(), std::optional<int>(3));
    QCOMPARE(failing->standardOutput(), QByteArray("out\n"));
    QCOMPARE(failing->standardError(), QByteArray("err\n"));

    const auto endless =
        desktop.start(QStringLiteral("tail"), {QStringLiteral("-f"), QStringLiteral("/dev/null")});
    QVERIFY(endless->isRunning());
    endless->kill();
    QVERIFY(!endless->isRunning());
    QCOMPARE(endless->waitForEnd(), std::optional<int>(-9));
}

void PrivateDesktopTest::aDesktopRemovesItsFilesWhenItEnds()
{
    const auto busSockets = [] {
        return QDir(QDir::tempPath()).entryList({QStringLiteral("dbus-*")}, QDir::AllEntries | QDir::System);
    };
    const QStringList busSocketsBefore = busSockets();
    auto desktop = std::make_unique<PrivateDesktop>(PrivateDesktop::Options{.sessionBus = true});
    const QString number = QString::fromLatin1(desktop->display()).mid(1);
    const QString socket = QStringLiteral("/tmp/.X11-unix/X%1").arg(number);
    const QString lock = QStringLiteral("/tmp/.X%1-lock").arg(number);
    const QString home = desktop->homeFolder();
    QVERIFY(QFile::exists(socket));

    desktop.reset();
    QVERIFY(!QFile::exists(socket));
    QVERIFY(!QFile::exists(lock));
    QVERIFY(!QFile::exists(home));
    QCOMPARE(busSockets(), busSocketsBefore);
}

QTEST_GUILESS_MAIN(PrivateDesktopTest)
#include "PrivateDesktopTest.moc"
