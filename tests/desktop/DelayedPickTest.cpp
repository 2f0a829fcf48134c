#include "desktop/TintwickProcess.h"
#include "support/Pattern.h"
#include "support/TestWindow.h"
#include "support/WaitUntil.h"

#include <QTest>

#include <X11/keysym.h>

#include <algorithm>
#include <chrono>
#include <optional>

using namespace tintwick;

using Compositor = PrivateDesktop::Compositor;

/// A pick that begins after a countdown beside the pointer, and the message after a pick.
class DelayedPickTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theScreenIsFrozenWhenTheTimeIsUp_data();
    void theScreenIsFrozenWhenTheTimeIsUp();
    void theCountdownFollowsThePointerAndTakesNoInput();
    void anotherPickEndsTheCountdown();
    void aPickWaitsWithItsPictureUntilAMenuCloses_data();
    void aPickWaitsWithItsPictureUntilAMenuCloses();
    void aPickSaysThatItWasCopied();
    void aCancelledPickSaysNothing();
};

namespace {

const QPoint middle(640, 400);
const QRgb hovered = qRgb(250, 120, 10);

} // namespace

void DelayedPickTest::theScreenIsFrozenWhenTheTimeIsUp_data()
{
    QTest::addColumn<Compositor>("compositor");
    QTest::newRow("no compositor") << Compositor::None;
    QTest::newRow("compositor with shadows") << Compositor::WithShadows;
}

void DelayedPickTest::theScreenIsFrozenWhenTheTimeIsUp()
{
    QFETCH(const Compositor, compositor);
    PrivateDesktop desktop({.compositor = compositor});
    const auto picture = desktop.showPicture();
    DesktopConnection other(desktop.display());
    TestWindow toolTip(other, {.geometry = {600, 420, 200, 40}});
    toolTip.setColor(QColor(hovered));
    TintwickProcess program(desktop);
    QVERIFY(program.openMenu());
    program.chooseDelayedPick();
    QVERIFY(waitUntil([&] { return !program.badge().isEmpty(); }));
    desktop.movePointer(middle);
    QVERIFY(waitUntil([&] { return program.badge().contains(middle + QPoint(40, 40)); }));
    toolTip.show();
    QVERIFY(program.waitForLoupe());
    toolTip.hide();
    QVERIFY(program.badge().isEmpty());

    // The tool tip is still there, and the badge never was.
    desktop.movePointer({700, 440});
    QVERIFY(program.waitForCenterCell(hovered));
    for (const QPoint place : {middle + QPoint(30, 10), middle + QPoint(40, 18), QPoint(820, 440)}) {
        desktop.movePointer(place);
        QVERIFY(program.waitForCenterCell(patternPixel(place.x(), place.y())));
    }
    desktop.movePointer({700, 440});
    QVERIFY(program.waitForCenterCell(hovered));
    desktop.click();
    QVERIFY(program.waitForPickToEnd());
    QVERIFY2(program.waitForClipboard("#FA780A"), desktop.clipboard().constData());
}

void DelayedPickTest::theCountdownFollowsThePointerAndTakesNoInput()
{
    PrivateDesktop desktop({});
    const auto picture = desktop.showPicture();
    DesktopConnection other(desktop.display());
    TestWindow window(other, {.geometry = {300, 200, 600, 400}, .input = TestWindow::Input::Recorded});
    window.show();
    TintwickProcess program(desktop);
    QVERIFY(program.openMenu());
    program.chooseDelayedPick();
    for (const QPoint place : {middle, middle + QPoint(-200, 50)}) {
        desktop.movePointer(place);
        QVERIFY(waitUntil([&] { return program.badge().contains(place + QPoint(40, 40)); }));
    }
    window.forgetEvents();
    desktop.clickAt(program.badge().center());
    const TestWindow::InputEvent press{XCB_BUTTON_PRESS, 1};
    QVERIFY(waitUntil([&] {
        const auto events = window.events();
        return std::find(events.begin(), events.end(), press) != events.end();
    }));
    // At the corner it stays on the screen.
    desktop.movePointer(desktop.screen().bottomRight());
    QVERIFY(waitUntil([&] {
        const QRect badge = program.badge();
        return !badge.isEmpty() && desktop.screen().contains(badge) && badge.right() > 1200;
    }));
    QVERIFY(program.waitForLoupe());
}

void DelayedPickTest::anotherPickEndsTheCountdown()
{
    PrivateDesktop desktop({});
    const auto picture = desktop.showPicture();
    TintwickProcess program(desktop);
    QVERIFY(program.openMenu());
    program.chooseDelayedPick();
    QVERIFY(waitUntil([&] { return !program.badge().isEmpty(); }));
    QVERIFY(program.startPicking());
    QVERIFY(program.badge().isEmpty());
    desktop.typeKey(XK_Escape);
    QVERIFY(program.waitForPickToEnd());
    // The loupe of the countdown would appear now.
    QVERIFY(!waitUntil([&] { return program.loupe().has_value(); }, std::chrono::milliseconds(3500)));
}

void DelayedPickTest::aPickWaitsWithItsPictureUntilAMenuCloses_data()
{
    QTest::addColumn<bool>("isDelayed");
    QTest::newRow("after the countdown") << true;
    QTest::newRow("at once") << false;
}

void DelayedPickTest::aPickWaitsWithItsPictureUntilAMenuCloses()
{
    QFETCH(const bool, isDelayed);
    PrivateDesktop desktop({.compositor = Compositor::Plain, .sessionBus = true});
    const auto picture = desktop.showPicture();
    DesktopConnection other(desktop.display());
    TestWindow menu(other, {.geometry = {600, 420, 200, 40}});
    menu.setColor(QColor(hovered));
    TintwickProcess program(desktop);
    QVERIFY(program.waitForTrayIcon());
    if (isDelayed) {
        QVERIFY(program.openMenu());
        program.chooseDelayedPick();
        QVERIFY(waitUntil([&] { return !program.badge().isEmpty(); }));
    }
    desktop.movePointer(middle);
    menu.show();
    QVERIFY(other.grabPointer());
    QVERIFY(other.grabKeyboard());
    std::optional<TintwickProcess> caller;
    if (!isDelayed) {
        caller.emplace(desktop, QProcessEnvironment(), QStringList{QStringLiteral("pick")});
    }
    // The sentence is wider than the countdown.
    QVERIFY(waitUntil([&] { return program.badge().width() > 150; }));
    QVERIFY(!program.loupe());
    menu.hide();
    other.ungrabAll();
    QVERIFY(program.waitForLoupe());
    QVERIFY(program.badge().isEmpty());
    desktop.movePointer({700, 440});
    QVERIFY(program.waitForCenterCell(hovered));
    desktop.click();
    QVERIFY(program.waitForPickToEnd());
    QVERIFY2(program.waitForClipboard("#FA780A"), desktop.clipboard().constData());
}

void DelayedPickTest::aPickSaysThatItWasCopied()
{
    PrivateDesktop desktop({});
    const auto picture = desktop.showPicture();
    TintwickProcess program(desktop);
    QVERIFY(program.startPicking());
    desktop.movePointer(middle);
    QVERIFY(program.waitForCenterCell(patternPixel(middle.x(), middle.y())));
    desktop.click();
    QVERIFY(waitUntil([&] { return program.badge().contains(middle + QPoint(40, 40)); }));
    QCOMPARE(desktop.clipboard(), hexText(patternPixel(middle.x(), middle.y())));
    // The next pick does not see it.
    QVERIFY(program.startPicking());
    QVERIFY(program.badge().isEmpty());
    const QPoint below = middle + QPoint(40, 30);
    desktop.movePointer(below);
    QVERIFY(program.waitForCenterCell(patternPixel(below.x(), below.y())));
    desktop.click();
    QVERIFY(waitUntil([&] { return !program.badge().isEmpty(); }));
    QVERIFY(waitUntil([&] { return program.badge().isEmpty(); }));
}

void DelayedPickTest::aCancelledPickSaysNothing()
{
    PrivateDesktop desktop({});
    const auto picture = desktop.showPicture();
    TintwickProcess program(desktop);
    QVERIFY(program.startPicking());
    desktop.typeKey(XK_Escape);
    QVERIFY(program.waitForPickToEnd());
    static_cast<void>(desktop.settledScreenshot());
    QVERIFY(program.badge().isEmpty());
}

QTEST_GUILESS_MAIN(DelayedPickTest)
#include "DelayedPickTest.moc"
