#include "desktop/TintwickProcess.h"
#include "support/Pattern.h"
#include "support/TestWindow.h"
#include "support/WaitUntil.h"

#include <QTest>

#include <X11/keysym.h>

using namespace tintwick;

using Compositor = PrivateDesktop::Compositor;

/// During a pick all input goes to the program; afterwards the previous state is restored.
class OursAloneTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void nothingReachesAnotherProgram_data();
    void nothingReachesAnotherProgram();
    void theReleaseOfTheEndingClickOrKeyIsSwallowed_data();
    void theReleaseOfTheEndingClickOrKeyIsSwallowed();
    void thePointerIsHiddenWhilePickingOnly_data();
    void thePointerIsHiddenWhilePickingOnly();
    void killingTheProgramReleasesAllGrabs();
    void aRefusedGrabEndsThePickCleanly_data();
    void aRefusedGrabEndsThePickCleanly();
    void noWindowOfOursIsAsLargeAsTheScreen();
    void aClickFollowedByEscapeStillPicksItsColor();
    void aPickStartedWithTheButtonDownReactsToInput();
};

namespace {

/// A program with the keyboard focus that records all input that reaches it.
std::unique_ptr<TestWindow> recorder(DesktopConnection& connection, const QRect& screen)
{
    auto window = std::make_unique<TestWindow>(
        connection, TestWindow::Options{.geometry = screen, .input = TestWindow::Input::Recorded});
    window->setPicture(patternImage(screen));
    window->lower();
    window->show();
    window->focus();
    return window;
}

QByteArray described(const std::vector<TestWindow::InputEvent>& events)
{
    QByteArray text;
    for (const auto& event : events) {
        text += QByteArray::number(event.type) + '/' + QByteArray::number(event.detail) + ' ';
    }
    return text;
}

// Keys and buttons only: a window may receive enter events again.
std::vector<TestWindow::InputEvent> keysAndButtons(TestWindow& window)
{
    auto events = window.events();
    std::erase_if(events, [](const auto& event) { return event.type == XCB_MOTION_NOTIFY; });
    return events;
}

} // namespace

void OursAloneTest::nothingReachesAnotherProgram_data()
{
    QTest::addColumn<bool>("windowManager");
    QTest::addColumn<Compositor>("compositor");
    QTest::newRow("bare server") << false << Compositor::None;
    QTest::newRow("window manager") << true << Compositor::None;
    QTest::newRow("compositor") << true << Compositor::Plain;
}

void OursAloneTest::nothingReachesAnotherProgram()
{
    QFETCH(const bool, windowManager);
    QFETCH(const Compositor, compositor);
    PrivateDesktop desktop({.windowManager = windowManager, .compositor = compositor});
    DesktopConnection other(desktop.display());
    const auto window = recorder(other, desktop.screen());
    TintwickProcess program(desktop);
    QVERIFY(program.startPicking());
    window->focus();
    window->forgetEvents();

    desktop.movePointer({500, 500});
    desktop.click(PrivateDesktop::Button::Middle);
    desktop.scroll(3);
    desktop.scroll(-3);
    desktop.typeKey(XK_a);
    desktop.typeKey(XK_Tab);
    desktop.typeKey(XK_equal, {XK_Super_L});
    desktop.typeKey(XK_minus, {XK_Control_L});
    desktop.typeKey(XK_Left);
    desktop.typeKey(XK_Right, {XK_Shift_L});
    // The server has delivered all of this when the loupe is where the last key moved it.
    QVERIFY(program.waitForCenterCell(patternPixel(509, 500)));
    QVERIFY2(window->events().empty(), described(window->events()).constData());

    desktop.typeKey(XK_Escape);
    QVERIFY(program.waitForPickToEnd());
    QVERIFY2(keysAndButtons(*window).empty(), described(window->events()).constData());

    QVERIFY(waitUntil([&] { return other.inputIsFree(); }));
    window->focus();
    window->forgetEvents();
    desktop.click();
    desktop.typeKey(XK_a);
    QVERIFY(waitUntil([&] { return keysAndButtons(*window).size() == 4; }));
}

void OursAloneTest::theReleaseOfTheEndingClickOrKeyIsSwallowed_data()
{
    using Button = PrivateDesktop::Button;
    QTest::addColumn<xcb_keysym_t>("key");
    QTest::addColumn<Button>("button");
    QTest::newRow("click") << xcb_keysym_t{XCB_NO_SYMBOL} << Button::Left;
    QTest::newRow("right click") << xcb_keysym_t{XCB_NO_SYMBOL} << Button::Right;
    QTest::newRow("Escape") << xcb_keysym_t{XK_Escape} << Button::Left;
    QTest::newRow("Return") << xcb_keysym_t{XK_Return} << Button::Left;
    QTest::newRow("Space") << xcb_keysym_t{XK_space} << Button::Left;
}

void OursAloneTest::theReleaseOfTheEndingClickOrKeyIsSwallowed()
{
    QFETCH(const xcb_keysym_t, key);
    QFETCH(const PrivateDesktop::Button, button);
    PrivateDesktop desktop({});
    DesktopConnection other(desktop.display());
    const auto window = recorder(other, desktop.screen());
    TintwickProcess program(desktop);
    QVERIFY(program.startPicking());
    desktop.movePointer({500, 500});
    QVERIFY(program.waitForCenterCell(patternPixel(500, 500)));
    window->focus();
    window->forgetEvents();
    if (key == XCB_NO_SYMBOL) {
        desktop.press(button);
    } else {
        desktop.pressKey(key);
    }
    QVERIFY(program.waitForPickToEnd());
    QVERIFY(waitUntil([&] { return desktop.pointerIsVisible(); }));
    if (key == XCB_NO_SYMBOL) {
        desktop.release(button);
    } else {
        desktop.releaseKey(key);
    }
    QVERIFY2(keysAndButtons(*window).empty(), described(window->events()).constData());
    // The release ends the grab, and no other program has to wait for it.
    QVERIFY(waitUntil([&] { return other.grabPointer() && other.grabKeyboard(); }));
    other.ungrabAll();
    QVERIFY2(keysAndButtons(*window).empty(), described(window->events()).constData());
}

void OursAloneTest::thePointerIsHiddenWhilePickingOnly_data()
{
    QTest::addColumn<bool>("takesColor");
    QTest::newRow("click") << true;
    QTest::newRow("Escape") << false;
}

void OursAloneTest::thePointerIsHiddenWhilePickingOnly()
{
    QFETCH(const bool, takesColor);
    PrivateDesktop desktop({});
    const auto picture = desktop.showPicture();
    TintwickProcess program(desktop);
    QVERIFY(program.waitForTrayIcon());
    QVERIFY(desktop.pointerIsVisible());
    QVERIFY(program.startPicking());
    for (const QPoint position : {QPoint(640, 400), QPoint(0, 0), program.trayIcon().center()}) {
        desktop.movePointer(position);
        QVERIFY(!desktop.pointerIsVisible());
    }
    if (takesColor) {
        desktop.click();
    } else {
        desktop.typeKey(XK_Escape);
    }
    QVERIFY(program.waitForPickToEnd());
    QVERIFY(waitUntil([&] { return desktop.pointerIsVisible(); }));
}

void OursAloneTest::killingTheProgramReleasesAllGrabs()
{
    PrivateDesktop desktop({});
    DesktopConnection other(desktop.display());
    const auto window = recorder(other, desktop.screen());
    TintwickProcess program(desktop);
    QVERIFY(program.startPicking());
    desktop.movePointer({600, 600});
    QVERIFY(program.waitForCenterCell(patternPixel(600, 600)));
    QVERIFY(!desktop.pointerIsVisible());

    program.process().kill();
    QVERIFY(waitUntil([&] { return desktop.pointerIsVisible(); }));
    QVERIFY(waitUntil([&] {
        return desktop.connection().screenshot({400, 400, 400, 400}) == patternImage({400, 400, 400, 400});
    }));
    window->focus();
    window->forgetEvents();
    desktop.click();
    desktop.typeKey(XK_a);
    QVERIFY(waitUntil([&] { return keysAndButtons(*window).size() == 4; }));
    QVERIFY(other.grabPointer());
    QVERIFY(other.grabKeyboard());
}

void OursAloneTest::aRefusedGrabEndsThePickCleanly_data()
{
    QTest::addColumn<bool>("holdsPointer");
    QTest::addColumn<bool>("holdsKeyboard");
    QTest::newRow("the pointer is held") << true << false;
    QTest::newRow("the keyboard is held") << false << true;
    QTest::newRow("both are held") << true << true;
}

void OursAloneTest::aRefusedGrabEndsThePickCleanly()
{
    QFETCH(const bool, holdsPointer);
    QFETCH(const bool, holdsKeyboard);
    PrivateDesktop desktop({});
    const auto picture = desktop.showPicture();
    TintwickProcess program(desktop);
    QVERIFY(program.waitForTrayIcon());
    DesktopConnection other(desktop.display());
    QVERIFY(!holdsPointer || other.grabPointer());
    QVERIFY(!holdsKeyboard || other.grabKeyboard());

    QVERIFY(program.openMenuWithoutPointer());
    program.choosePickWithoutPointer();
    QVERIFY(waitUntil([&] { return program.menuPlace().isEmpty(); }));
    // Neither the pointer nor the keyboard stays grabbed.
    QVERIFY(holdsPointer || waitUntil([&] { return other.grabPointer(); }));
    QVERIFY(holdsKeyboard || waitUntil([&] { return other.grabKeyboard(); }));
    // The program answers a second click, so the first pick has ended.
    QVERIFY(program.openMenuWithoutPointer());
    QVERIFY(!program.loupe());
    QVERIFY(desktop.pointerIsVisible());

    other.ungrabAll();
    program.choosePickWithoutPointer();
    QVERIFY(program.waitForLoupe());
    desktop.movePointer({640, 500});
    QVERIFY(program.waitForCenterCell(patternPixel(640, 500)));
    desktop.click();
    QVERIFY(program.waitForPickToEnd());
    QVERIFY(program.waitForClipboard(hexText(patternPixel(640, 500))));
    QVERIFY(waitUntil([&] { return other.inputIsFree(); }));
}

void OursAloneTest::noWindowOfOursIsAsLargeAsTheScreen()
{
    PrivateDesktop desktop({});
    const auto picture = desktop.showPicture();
    TintwickProcess program(desktop);
    QVERIFY(program.startPicking());
    DesktopConnection& connection = desktop.connection();
    for (const xcb_window_t window : connection.children(connection.root())) {
        const bool isTheLoupe = connection.property(window, "_NET_WM_NAME") == "Tintwick Loupe";
        const QRect place = connection.geometry(window);
        QVERIFY(window == picture->id() || isTheLoupe || !connection.isViewable(window) ||
                place.height() < desktop.screen().height() / 2);
    }
}

void OursAloneTest::aClickFollowedByEscapeStillPicksItsColor()
{
    PrivateDesktop desktop({});
    const auto picture = desktop.showPicture();
    TintwickProcess program(desktop);
    DesktopConnection other(desktop.display());
    QVERIFY(program.waitForTrayIcon());
    // The scheduler decides whether both arrive together, so repeat this several times.
    for (int x = 600; x < 620; ++x) {
        QVERIFY(waitUntil([&] { return other.inputIsFree(); }));
        desktop.typeKey(XK_c, {XK_Alt_L, XK_Shift_L});
        QVERIFY(program.waitForLoupe());
        desktop.movePointer({x, 500});
        desktop.click();
        desktop.typeKey(XK_Escape);
        QVERIFY(program.waitForPickToEnd());
        QVERIFY(program.waitForClipboard(hexText(patternPixel(x, 500))));
    }
}

void OursAloneTest::aPickStartedWithTheButtonDownReactsToInput()
{
    PrivateDesktop desktop({});
    const auto picture = desktop.showPicture();
    TintwickProcess program(desktop);
    QVERIFY(program.startPicking());
    desktop.movePointer({600, 500});
    desktop.press(PrivateDesktop::Button::Left);
    QVERIFY(program.waitForPickToEnd());

    desktop.typeKey(XK_c, {XK_Alt_L, XK_Shift_L});
    QVERIFY(program.waitForLoupe());
    desktop.movePointer({640, 420});
    QVERIFY(program.waitForCenterCell(patternPixel(640, 420)));
    desktop.release(PrivateDesktop::Button::Left);
    desktop.typeKey(XK_Escape);
    QVERIFY(program.waitForPickToEnd());
    DesktopConnection other(desktop.display());
    QVERIFY(waitUntil([&] { return other.inputIsFree(); }));
}

QTEST_GUILESS_MAIN(OursAloneTest)
#include "OursAloneTest.moc"
