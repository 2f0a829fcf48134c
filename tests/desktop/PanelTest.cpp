#include "desktop/TintwickProcess.h"
#include "support/TestWindow.h"
#include "support/WaitUntil.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QTest>

#include <X11/keysym.h>

#include <algorithm>

using namespace tintwick;

namespace {

using namespace Qt::StringLiterals;

using Button = PrivateDesktop::Button;
using Compositor = PrivateDesktop::Compositor;

const QString colorId = u"3F2504E0-4F89-41D3-9A0C-0305E82C3301"_s;

// In pixels from the top left corner of the panel.
constexpr QPoint header(190, 25);
constexpr QPoint settingsButton(350, 25);
constexpr QPoint pin(271, 25);
constexpr QPoint pickButton(190, 92);
constexpr QPoint firstSwatch(47, 200);
constexpr QPoint card(190, 355);

/// Alt+Shift+O opens the panel.
void keepOpeningShortcut(const PrivateDesktop& desktop)
{
    // Not a raw string: moc finds no class after one with such quotes.
    keepPreferences(
        desktop,
        "KeyboardShortcuts_openMainWindow=\"{\\\"carbonKeyCode\\\":31,\\\"carbonModifiers\\\":2560}\"\n");
}

void keepOneColor(const PrivateDesktop& desktop, bool withCollection)
{
    const QByteArray collection =
        R"({"id": "7D444840-9DC0-11D1-B245-5FFDCE74FAD2", "name": "Brand", "colorIds": [],)"
        R"( "createdAt": "2026-01-02T03:04:05Z", "icon": "paintpalette.fill"})";
    keepData(desktop,
             R"({"history": [{"id": ")" + colorId.toUtf8() +
                 R"(", "red": 1, "green": 0, "blue": 1, "alpha": 1, "capturedAt": "2026-01-02T03:04:05Z"}],)"
                 R"( "collections": [)" +
                 (withCollection ? collection : QByteArray()) + R"(], "defaultFormat": "HEX"})");
}

enum class Pin { Off, On };

/// Returns when the pin shows its new state.
bool clickPin(PrivateDesktop& desktop, const QRect& panel, Pin state)
{
    desktop.clickAt(panel.topLeft() + pin);
    return waitUntil([&] {
        // The accent is blue, the other ground is grey.
        const QRgb ground = desktop.pixel(panel.topLeft() + pin - QPoint(0, 13));
        return (qBlue(ground) - qRed(ground) > 12) == (state == Pin::On);
    });
}

QJsonArray collections(const TintwickProcess& program)
{
    return program.data().value("collections"_L1).toArray();
}

} // namespace

/// The panel, the tray icon and windows of other programs, with real clicks and keys.
class PanelTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theTrayIconTogglesThePanelUnderIt_data();
    void theTrayIconTogglesThePanelUnderIt();
    void aboveATrayAtTheBottomThePanelOpensUpwards();
    void aClickElsewhereHidesIt_data();
    void aClickElsewhereHidesIt();
    void keptOpenItStaysBesideOtherWindows();
    void keptOpenItReturnsFromAPick_data();
    void keptOpenItReturnsFromAPick();
    void aClickInsideActsAtOnceAndDoesNotHideIt();
    void theMenuOfTheIconDoesNotToggleIt();
    void theMenuOfTheIconLooksLikeThePanel_data();
    void theMenuOfTheIconLooksLikeThePanel();
    void withoutACompositorItsCornersAreCutOff();
    void withoutACompositorItHasAnEdge_data();
    void withoutACompositorItHasAnEdge();
    void whenTheCompositorGoesItHasNoBlackFrame();
    void itsShadowComesWithIt();
    void whenTheScreenShrinksItComesBackInside();
    void withACompositorItHasOneShadow_data();
    void withACompositorItHasOneShadow();
    void openingTakesTheKeyboardAndClosingGivesItBack_data();
    void openingTakesTheKeyboardAndClosingGivesItBack();
    void aWindowThatIsClickedKeepsTheKeyboard();
    void aSheetThatWasLeftOpenComesBackWithItsFieldFocused();
    void aToolTipAppearsAfterOpeningFromTheTray();
    void closedInTheSettingsItOpensOnTheDashboard();
    void aColorIsDraggedOntoACollection();
    void aPickFromThePanelHidesItUntilItHasItsColor();
    void aPickByTheShortcutDoesNotHideIt();
    void aRestartedTrayGetsTheIconAgain();
    void withoutATrayTheShortcutOpensIt();
    void onALowScreenItIsCompletelyVisible();
};

void PanelTest::theTrayIconTogglesThePanelUnderIt_data()
{
    QTest::addColumn<Compositor>("compositor");
    QTest::addColumn<bool>("windowManager");
    QTest::newRow("without a compositor") << Compositor::None << true;
    QTest::newRow("with a compositor") << Compositor::Plain << true;
    QTest::newRow("without a window manager") << Compositor::None << false;
}

void PanelTest::theTrayIconTogglesThePanelUnderIt()
{
    QFETCH(const Compositor, compositor);
    QFETCH(const bool, windowManager);
    PrivateDesktop desktop({.windowManager = windowManager, .compositor = compositor});
    TintwickProcess program(desktop);
    QVERIFY(program.waitForTrayIcon());
    const QRect icon = program.trayIcon();
    const QPoint middle = icon.center();
    for (int round = 0; round < 3; ++round) {
        desktop.clickAt(middle);
        QVERIFY(program.waitForPanel());
        QCOMPARE(program.panel(),
                 QRect(icon.x() + icon.width() / 2 - 190, icon.y() + icon.height(), 380, 580));
        desktop.clickAt(middle);
        QVERIFY(program.waitForPanelToHide());
    }
}

void PanelTest::aboveATrayAtTheBottomThePanelOpensUpwards()
{
    PrivateDesktop desktop({.tray = false});
    const auto tray = desktop.start(u"trayer"_s, {u"--edge"_s, u"bottom"_s, u"--align"_s, u"right"_s,
                                                  u"--widthtype"_s, u"request"_s, u"--height"_s, u"24"_s});
    TintwickProcess program(desktop);
    QVERIFY(program.waitForTrayIcon());
    desktop.clickAt(program.trayIcon().center());
    QVERIFY(program.waitForPanel());
    QCOMPARE(program.panel(), QRect(1280 - 8 - 380, program.trayIcon().y() - 580, 380, 580));
}

void PanelTest::aClickElsewhereHidesIt_data()
{
    QTest::addColumn<bool>("onAWindow");
    QTest::addColumn<Button>("button");
    QTest::newRow("left, on another program") << true << Button::Left;
    QTest::newRow("right, on another program") << true << Button::Right;
    QTest::newRow("left, on the desktop") << false << Button::Left;
}

void PanelTest::aClickElsewhereHidesIt()
{
    QFETCH(const bool, onAWindow);
    QFETCH(const Button, button);
    PrivateDesktop desktop({});
    TestWindow other(desktop.connection(),
                     {.geometry = {40, 300, 200, 200}, .input = TestWindow::Input::Recorded});
    if (onAWindow) {
        other.show();
    }
    TintwickProcess program(desktop);
    QVERIFY(program.waitForTrayIcon());
    desktop.clickAt(program.trayIcon().center());
    QVERIFY(program.waitForPanel());

    // Neither the wheel nor a pointer move hides it.
    desktop.movePointer({140, 400});
    desktop.scroll(-1);
    desktop.clickAt(program.panel().topLeft() + header);
    QVERIFY(!program.panel().isEmpty());

    other.forgetEvents();
    desktop.clickAt({140, 400}, button);
    QVERIFY(program.waitForPanelToHide());
    // The other program gets the click too.
    QCOMPARE(!other.events().empty(), onAWindow);
    desktop.clickAt(program.trayIcon().center());
    QVERIFY(program.waitForPanel());
}

void PanelTest::keptOpenItStaysBesideOtherWindows()
{
    PrivateDesktop desktop({});
    keepOpeningShortcut(desktop);
    TestWindow other(desktop.connection(),
                     {.geometry = {40, 300, 200, 200}, .management = TestWindow::Management::Managed});
    other.show();
    TintwickProcess program(desktop);
    QVERIFY(program.waitForTrayIcon());
    const QPoint icon = program.trayIcon().center();
    desktop.clickAt(icon);
    QVERIFY(program.waitForPanelToHaveFocus());
    const auto clickOther = [&] {
        desktop.clickAt(desktop.connection().geometry(other.id()).center());
        return waitUntil([&] { return desktop.connection().focusedWindow() == other.id(); });
    };
    QVERIFY(clickPin(desktop, program.panel(), Pin::On));
    QVERIFY(clickOther());
    static_cast<void>(desktop.settledScreenshot());
    QVERIFY(!program.panel().isEmpty());

    // Closed by the icon it leaves the keyboard where it is, and opens kept open again.
    desktop.clickAt(icon);
    QVERIFY(program.waitForPanelToHide());
    QCOMPARE(desktop.connection().focusedWindow(), other.id());
    desktop.clickAt(icon);
    QVERIFY(program.waitForPanelToHaveFocus());
    QVERIFY(clickOther());
    static_cast<void>(desktop.settledScreenshot());
    QVERIFY(!program.panel().isEmpty());

    desktop.clickAt(icon);
    QVERIFY(program.waitForPanelToHide());

    // The shortcut opens it, and closes it when it has the keyboard; so does Escape.
    const auto pressShortcut = [&] { desktop.typeKey(XK_o, {XK_Alt_L, XK_Shift_L}); };
    pressShortcut();
    QVERIFY(program.waitForPanelToHaveFocus());
    // The server gives it the keyboard before the toolkit knows.
    static_cast<void>(desktop.settledScreenshot());
    pressShortcut();
    QVERIFY(program.waitForPanelToHide());
    pressShortcut();
    QVERIFY(program.waitForPanelToHaveFocus());
    desktop.typeKey(XK_Escape);
    QVERIFY(program.waitForPanelToHide());

    pressShortcut();
    QVERIFY(program.waitForPanelToHaveFocus());
    QVERIFY(clickPin(desktop, program.panel(), Pin::Off));
    desktop.clickAt(desktop.connection().geometry(other.id()).center());
    QVERIFY(program.waitForPanelToHide());
}

void PanelTest::keptOpenItReturnsFromAPick_data()
{
    QTest::addColumn<bool>("isCancelled");
    QTest::newRow("picked") << false;
    QTest::newRow("cancelled") << true;
}

void PanelTest::keptOpenItReturnsFromAPick()
{
    QFETCH(const bool, isCancelled);
    PrivateDesktop desktop({});
    TestWindow behind(desktop.connection(), {.geometry = {{0, 0}, desktop.screen().size()}});
    behind.setColor(QColor(30, 144, 255));
    behind.show();
    behind.lower();
    TintwickProcess program(desktop);
    QVERIFY(program.waitForTrayIcon());
    desktop.clickAt(program.trayIcon().center());
    QVERIFY(program.waitForPanelToHaveFocus());
    const QRect place = program.panel();
    QVERIFY(clickPin(desktop, place, Pin::On));
    desktop.clickAt(place.topLeft() + pickButton);
    QVERIFY(program.waitForLoupe());
    QVERIFY(program.panel().isEmpty());
    if (isCancelled) {
        desktop.typeKey(XK_Escape);
    } else {
        desktop.click();
    }
    QVERIFY(program.waitForPickToEnd());
    QVERIFY(program.waitForPanel());
    QCOMPARE(program.panel(), place);
    desktop.clickAt({140, 400});
    static_cast<void>(desktop.settledScreenshot());
    QVERIFY(!program.panel().isEmpty());
}

void PanelTest::aClickInsideActsAtOnceAndDoesNotHideIt()
{
    PrivateDesktop desktop({});
    keepOneColor(desktop, false);
    TestWindow other(desktop.connection(),
                     {.geometry = {40, 300, 200, 200}, .management = TestWindow::Management::Managed});
    other.show();
    TintwickProcess program(desktop);
    QVERIFY(program.waitForTrayIcon());
    desktop.clickAt(program.trayIcon().center());
    QVERIFY(program.waitForPanel());
    desktop.clickAt(program.panel().topLeft() + firstSwatch);
    QVERIFY(program.waitForClipboard("#FF00FF"));
    QVERIFY(!program.panel().isEmpty());
}

void PanelTest::theMenuOfTheIconDoesNotToggleIt()
{
    PrivateDesktop desktop({});
    TintwickProcess program(desktop);
    QVERIFY(program.openMenu());
    desktop.typeKey(XK_Escape);
    QVERIFY(waitUntil([&] { return program.menuPlace().isEmpty(); }));
    desktop.clickAt(program.trayIcon().center());
    QVERIFY(program.waitForPanel());
    QVERIFY(program.openMenu());
    desktop.typeKey(XK_Escape);
    QVERIFY(waitUntil([&] { return program.menuPlace().isEmpty(); }));
    QVERIFY(!program.panel().isEmpty());
    desktop.clickAt(program.trayIcon().center());
    QVERIFY(program.waitForPanelToHide());
}

void PanelTest::theMenuOfTheIconLooksLikeThePanel_data()
{
    QTest::addColumn<QByteArray>("preference");
    QTest::addColumn<QRgb>("ground");
    QTest::newRow("light") << QByteArray("light") << qRgb(0xFF, 0xFF, 0xFF);
    QTest::newRow("dark") << QByteArray("dark") << qRgb(0x2A, 0x2A, 0x2F);
}

void PanelTest::theMenuOfTheIconLooksLikeThePanel()
{
    QFETCH(const QByteArray, preference);
    QFETCH(const QRgb, ground);
    PrivateDesktop desktop({});
    keepPreferences(desktop, "colorSchemePref=" + preference + '\n');
    TintwickProcess program(desktop);
    QVERIFY(program.waitForTrayIcon());
    // The panel is visible, so its appearance can be compared.
    desktop.clickAt(program.trayIcon().center());
    QVERIFY(program.waitForPanel());
    QVERIFY(program.openMenu());
    const QRect menu = program.menuPlace();
    QVERIFY(waitUntil([&] { return desktop.pixel({menu.center().x(), menu.top() + 3}) == ground; }));
}

void PanelTest::withoutACompositorItsCornersAreCutOff()
{
    PrivateDesktop desktop({});
    TestWindow behind(desktop.connection(), {.geometry = {{0, 0}, desktop.screen().size()}});
    behind.setColor(QColor(0, 200, 0));
    behind.show();
    behind.lower();
    TintwickProcess program(desktop);
    QVERIFY(program.waitForTrayIcon());
    desktop.clickAt(program.trayIcon().center());
    QVERIFY(program.waitForPanel());
    const QRect panel = program.panel();
    const QRgb ground = qRgb(0xF5, 0xF5, 0xF7);
    QVERIFY(waitUntil([&] { return desktop.pixel({panel.center().x(), panel.bottom() - 2}) == ground; }));
    for (const QPoint corner : {panel.bottomLeft(), panel.bottomRight()}) {
        QCOMPARE(desktop.pixel(corner), qRgb(0, 200, 0));
    }
    // No pixel near a corner is darker than the panel's edge.
    const QImage picture = desktop.connection().screenshot(QRect(panel.left(), panel.bottom() - 19, 20, 20));
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            QVERIFY(qGreen(picture.pixel(x, y)) >= 0x68);
        }
    }
}

void PanelTest::withoutACompositorItHasAnEdge_data()
{
    QTest::addColumn<QColor>("behind");
    QTest::newRow("before its own colour") << QColor(0xF5, 0xF5, 0xF7);
    QTest::newRow("before white") << QColor(Qt::white);
}

void PanelTest::withoutACompositorItHasAnEdge()
{
    QFETCH(const QColor, behind);
    PrivateDesktop desktop({});
    TestWindow window(desktop.connection(), {.geometry = {{0, 0}, desktop.screen().size()}});
    window.setColor(behind);
    window.show();
    window.lower();
    TintwickProcess program(desktop);
    QVERIFY(program.waitForTrayIcon());
    desktop.clickAt(program.trayIcon().center());
    QVERIFY(program.waitForPanelToHaveFocus());
    const QRect panel = program.panel();
    const QPoint middle = panel.center();
    for (const QPoint edge : {QPoint(panel.left(), middle.y()), QPoint(panel.right(), middle.y()),
                              QPoint(middle.x(), panel.top()), QPoint(middle.x(), panel.bottom())}) {
        QVERIFY(waitUntil([&] { return qGray(desktop.pixel(edge)) < 175; }));
    }
    QCOMPARE(desktop.pixel(middle + QPoint(-188, 0)), qRgb(0xF5, 0xF5, 0xF7));
}

void PanelTest::whenTheCompositorGoesItHasNoBlackFrame()
{
    const QStringList plain{u"--backend"_s, u"xrender"_s, u"--config"_s, u"/dev/null"_s,
                            u"--no-fading-openclose"_s};
    PrivateDesktop desktop({});
    const QRgb ground = qRgb(200, 200, 200);
    TestWindow behind(desktop.connection(), {.geometry = {{0, 0}, desktop.screen().size()}});
    behind.setColor(QColor(ground));
    behind.show();
    behind.lower();
    TintwickProcess program(desktop);
    QVERIFY(program.waitForTrayIcon());
    desktop.clickAt(program.trayIcon().center());
    QVERIFY(program.waitForPanelToHaveFocus());
    const QRect panel = program.panel();
    const QPoint below(panel.center().x(), panel.bottom() + 9);
    for (int round = 0; round < 2; ++round) {
        const auto compositor = desktop.start(u"picom"_s, plain);
        // Its shadow, 8 points below it.
        QVERIFY(waitUntil([&] { return std::abs(qGray(desktop.pixel(below)) - 175) <= 3; }));
        compositor->kill();
        QVERIFY(waitUntil([&] { return desktop.pixel(below) == ground; }));
        const auto isCut = [&] {
            return desktop.pixel(panel.bottomLeft()) == ground &&
                   desktop.pixel(panel.bottomRight()) == ground;
        };
        QVERIFY(waitUntil(isCut));
        const QImage picture = desktop.settledScreenshot(panel.adjusted(-60, 0, 60, 60));
        // The darkest pixels of the panel are its texts.
        const QPoint corner = picture.rect().bottomLeft() + QPoint(60, -60);
        for (int y = -19; y <= 0; ++y) {
            for (int x = 0; x < 20; ++x) {
                QVERIFY(qGray(picture.pixel(corner + QPoint(x, y))) > 90);
            }
        }
        QVERIFY(isCut());
    }
}

void PanelTest::itsShadowComesWithIt()
{
    PrivateDesktop desktop({.compositor = Compositor::Plain});
    const QRgb ground = qRgb(200, 200, 200);
    TestWindow behind(desktop.connection(), {.geometry = {{0, 0}, desktop.screen().size()}});
    behind.setColor(QColor(ground));
    behind.show();
    behind.lower();
    TintwickProcess program(desktop);
    QVERIFY(program.waitForTrayIcon());
    const QPoint icon = program.trayIcon().center();
    desktop.clickAt(icon);
    QVERIFY(program.waitForPanel());
    const QRect panel = program.panel();
    desktop.clickAt(icon);
    QVERIFY(program.waitForPanelToHide());

    // What the server has, because a compositor may read it in the middle of the change.
    DesktopConnection& server = desktop.connection();
    const auto hasDrawn = [&](xcb_window_t window, QPoint position) {
        const QImage pixel = server.drawnBy(window, {position, QSize(1, 1)});
        return !pixel.isNull() && pixel.pixel(0, 0) == qRgb(0xF5, 0xF5, 0xF7);
    };
    const auto isShadowVisible = [&] {
        const auto windows = server.children(server.root());
        return std::ranges::any_of(windows, [&](xcb_window_t window) {
            const QRect place = server.geometry(window);
            return server.isViewable(window) && place.contains(panel, true) &&
                   place.width() < 2 * panel.width();
        });
    };
    const QPoint inPanel(panel.width() / 2, panel.height() - 5);
    const QPoint inShadow = panel.topLeft() + inPanel + QPoint(0, 13);
    for (int round = 0; round < 10; ++round) {
        QVERIFY(waitUntil([&] { return desktop.pixel(inShadow) == ground; }));
        desktop.clickAt(icon);
        QVERIFY(waitUntil([&] { return hasDrawn(program.panelWindow(), inPanel); }));
        QVERIFY(isShadowVisible());
        QVERIFY(waitUntil([&] { return qGray(desktop.pixel(inShadow)) < 190; }));
        desktop.clickAt(icon);
        QVERIFY(program.waitForPanelToHide());
    }
}

void PanelTest::whenTheScreenShrinksItComesBackInside()
{
    PrivateDesktop desktop({.compositor = Compositor::Plain});
    TestWindow behind(desktop.connection(), {.geometry = {{0, 0}, desktop.screen().size()}});
    behind.setColor(QColor(200, 200, 200));
    behind.show();
    behind.lower();
    const QRect left(0, 0, 600, 500);
    desktop.setMonitors({{"left", left, true}, {"right", {600, 0, 680, 800}}});
    TintwickProcess program(desktop);
    QVERIFY(program.waitForTrayIcon());
    desktop.clickAt(program.trayIcon().center());
    QVERIFY(program.waitForPanelToHaveFocus());
    QCOMPARE(program.panel().x(), 608);
    desktop.removeMonitor("right");
    QVERIFY(
        waitUntil([&] { return left.contains(program.panel()) && program.panel().x() == 600 - 8 - 380; }));
    // Its shadow comes with it.
    const QRect panel = program.panel();
    QVERIFY(waitUntil([&] {
        return std::abs(qGray(desktop.pixel({panel.left() - 1, panel.center().y()})) - 176) <= 3;
    }));
    QVERIFY(waitUntil([&] { return desktop.pixel({900, 400}) == qRgb(200, 200, 200); }));
    desktop.typeKey(XK_Escape);
    QVERIFY(program.waitForPanelToHide());
}

void PanelTest::withACompositorItHasOneShadow_data()
{
    QTest::addColumn<Compositor>("compositor");
    QTest::newRow("with a compositor") << Compositor::Plain;
    QTest::newRow("with one that draws shadows itself") << Compositor::WithShadows;
}

// Black with opacity 0.25, blurred with a standard deviation of 12, 8 points below the panel.
void PanelTest::withACompositorItHasOneShadow()
{
    QFETCH(const Compositor, compositor);
    PrivateDesktop desktop({.compositor = compositor});
    TestWindow behind(desktop.connection(), {.geometry = {{0, 0}, desktop.screen().size()}});
    behind.setColor(QColor(200, 200, 200));
    behind.show();
    behind.lower();
    TintwickProcess program(desktop);
    QVERIFY(program.waitForTrayIcon());
    for (int round = 0; round < 2; ++round) {
        desktop.clickAt(program.trayIcon().center());
        QVERIFY(program.waitForPanel());
        const QRect panel = program.panel();
        const auto grayAt = [&](int x, int y) { return qGray(desktop.pixel({x, y})); };
        const int x = panel.center().x();
        const int below = panel.bottom() + 1;
        const auto isNear = [](int value, int expected) { return std::abs(value - expected) <= 3; };
        // At its edge the shadow has half of its darkness; 12 points further out, a sixth.
        QVERIFY(waitUntil([&] { return isNear(grayAt(x, below + 8), 175); }));
        QVERIFY(isNear(grayAt(x, below + 20), 192));
        QVERIFY(isNear(grayAt(x, below + 50), 200));
        // Equal on both sides, and half as dark as beside the middle.
        QVERIFY(isNear(grayAt(panel.left() - 1, panel.center().y()), 176));
        QVERIFY(isNear(grayAt(panel.right() + 1, panel.center().y()), 176));
        // A click on the shadow reaches the window below it.
        desktop.clickAt({x, below + 10});
        QVERIFY(program.waitForPanelToHide());
        QVERIFY(waitUntil([&] { return grayAt(x, below + 8) == 200; }));
    }
}

void PanelTest::openingTakesTheKeyboardAndClosingGivesItBack_data()
{
    QTest::addColumn<bool>("windowManager");
    QTest::addColumn<bool>("byShortcut");
    QTest::newRow("by the icon") << true << false;
    QTest::newRow("by the icon, without a window manager") << false << false;
    QTest::newRow("by the shortcut") << true << true;
}

void PanelTest::openingTakesTheKeyboardAndClosingGivesItBack()
{
    QFETCH(const bool, windowManager);
    QFETCH(const bool, byShortcut);
    PrivateDesktop desktop({.windowManager = windowManager});
    keepOpeningShortcut(desktop);
    DesktopConnection& connection = desktop.connection();
    // The window manager would choose the second one, which was active before.
    TestWindow second(connection,
                      {.geometry = {300, 300, 200, 200}, .management = TestWindow::Management::Managed});
    TestWindow other(connection, {.geometry = {40, 300, 200, 200},
                                  .management = TestWindow::Management::Managed,
                                  .input = TestWindow::Input::Recorded});
    second.show();
    other.show();
    other.focus();
    QVERIFY(waitUntil([&] { return connection.focusedWindow() == other.id(); }));
    TintwickProcess program(desktop);
    QVERIFY(program.waitForTrayIcon());
    const QPoint icon = program.trayIcon().center();
    const auto open = [&] {
        if (byShortcut) {
            desktop.typeKey(XK_o, {XK_Alt_L, XK_Shift_L});
        } else {
            desktop.clickAt(icon);
        }
    };
    const auto getFocus = [&] { return waitUntil([&] { return connection.focusedWindow() == other.id(); }); };
    QVERIFY(!byShortcut || waitUntil([&] {
        open();
        return !program.panel().isEmpty();
    }));
    QVERIFY(byShortcut || (open(), true));
    QVERIFY(program.waitForPanel());
    QVERIFY(program.waitForPanelToHaveFocus());
    other.forgetEvents();
    desktop.typeKey(XK_Tab);
    desktop.typeKey(XK_Escape);
    QVERIFY(program.waitForPanelToHide());
    QVERIFY(getFocus());
    QVERIFY(other.events().empty());

    // By a second click on the icon.
    open();
    QVERIFY(program.waitForPanel());
    QVERIFY(program.waitForPanelToHaveFocus());
    desktop.clickAt(icon);
    QVERIFY(program.waitForPanelToHide());
    QVERIFY(getFocus());

    // By a click on the desktop.
    open();
    QVERIFY(program.waitForPanel());
    QVERIFY(program.waitForPanelToHaveFocus());
    desktop.clickAt({640, 780});
    QVERIFY(program.waitForPanelToHide());
    QVERIFY(getFocus());

    // The pick button hides the panel. Afterwards the other window is active.
    open();
    QVERIFY(program.waitForPanel());
    QVERIFY(program.waitForPanelToHaveFocus());
    desktop.clickAt(program.panel().topLeft() + pickButton);
    QVERIFY(program.waitForLoupe());
    desktop.typeKey(XK_Escape);
    QVERIFY(program.waitForPickToEnd());
    QVERIFY(getFocus());
}

void PanelTest::aWindowThatIsClickedKeepsTheKeyboard()
{
    PrivateDesktop desktop({});
    DesktopConnection& connection = desktop.connection();
    TestWindow before(connection,
                      {.geometry = {40, 300, 200, 200}, .management = TestWindow::Management::Managed});
    TestWindow clicked(connection,
                       {.geometry = {900, 300, 200, 200}, .management = TestWindow::Management::Managed});
    clicked.show();
    before.show();
    TintwickProcess program(desktop);
    QVERIFY(program.waitForTrayIcon());
    for (int round = 0; round < 3; ++round) {
        before.focus();
        QVERIFY(waitUntil([&] { return connection.focusedWindow() == before.id(); }));
        desktop.clickAt(program.trayIcon().center());
        QVERIFY(program.waitForPanel());
        QVERIFY(program.waitForPanelToHaveFocus());
        desktop.clickAt(connection.geometry(clicked.id()).center());
        QVERIFY(program.waitForPanelToHide());
        QVERIFY(waitUntil([&] { return connection.focusedWindow() == clicked.id(); }));
        static_cast<void>(desktop.settledScreenshot());
        QCOMPARE(connection.focusedWindow(), clicked.id());
    }
}

void PanelTest::aSheetThatWasLeftOpenComesBackWithItsFieldFocused()
{
    PrivateDesktop desktop({});
    TestWindow other(desktop.connection(),
                     {.geometry = {40, 300, 200, 200}, .management = TestWindow::Management::Managed});
    other.show();
    other.focus();
    TintwickProcess program(desktop);
    QVERIFY(program.waitForTrayIcon());
    const QPoint icon = program.trayIcon().center();
    desktop.clickAt(icon);
    QVERIFY(program.waitForPanel());
    QVERIFY(program.waitForPanelToHaveFocus());
    // "Create your first palette", when there is no history either.
    const QRgb ground = desktop.pixel(program.panel().topLeft() + header);
    desktop.clickAt(program.panel().topLeft() + QPoint(190, 210));
    // The sheet dims what it covers.
    QVERIFY(waitUntil([&] { return desktop.pixel(program.panel().topLeft() + header) != ground; }));
    desktop.typeKey(XK_s);
    desktop.typeKey(XK_e);
    desktop.clickAt(icon);
    QVERIFY(program.waitForPanelToHide());
    QVERIFY(waitUntil([&] { return desktop.connection().focusedWindow() == other.id(); }));

    desktop.clickAt(icon);
    QVERIFY(program.waitForPanel());
    QVERIFY(program.waitForPanelToHaveFocus());
    desktop.typeKey(XK_a);
    desktop.typeKey(XK_Return);
    QVERIFY(waitUntil([&] { return collections(program).size() == 1; }));
    QCOMPARE(collections(program).first().toObject().value("name"_L1).toString(), u"sea"_s);
}

void PanelTest::aToolTipAppearsAfterOpeningFromTheTray()
{
    PrivateDesktop desktop({});
    TintwickProcess program(desktop);
    QVERIFY(program.waitForTrayIcon());
    desktop.clickAt(program.trayIcon().center());
    QVERIFY(program.waitForPanel());
    const auto windows = [&] { return program.visibleWindows(); };
    const std::size_t before = windows();
    desktop.movePointer(program.panel().topLeft() + settingsButton);
    QVERIFY(waitUntil([&] { return windows() == before + 1; }));
}

void PanelTest::closedInTheSettingsItOpensOnTheDashboard()
{
    PrivateDesktop desktop({});
    TintwickProcess program(desktop);
    QVERIFY(program.waitForTrayIcon());
    const QPoint icon = program.trayIcon().center();
    desktop.clickAt(icon);
    QVERIFY(program.waitForPanelToHaveFocus());
    const QPoint button = program.panel().topLeft() + QPoint(60, 92);
    const auto isDashboard = [&] {
        const QRgb color = desktop.pixel(button);
        return qBlue(color) - qRed(color) > 60;
    };
    QVERIFY(waitUntil(isDashboard));
    desktop.clickAt(program.panel().topLeft() + settingsButton);
    QVERIFY(waitUntil([&] { return !isDashboard(); }));
    desktop.clickAt(icon);
    QVERIFY(program.waitForPanelToHide());
    desktop.clickAt(icon);
    QVERIFY(program.waitForPanelToHaveFocus());
    QVERIFY(waitUntil(isDashboard));
}

void PanelTest::aColorIsDraggedOntoACollection()
{
    PrivateDesktop desktop({});
    keepOneColor(desktop, true);
    TintwickProcess program(desktop);
    QVERIFY(program.waitForTrayIcon());
    desktop.clickAt(program.trayIcon().center());
    QVERIFY(program.waitForPanel());
    const QPoint from = program.panel().topLeft() + firstSwatch;
    const QPoint to = program.panel().topLeft() + card;
    const QPoint outline(program.panel().left() + 16, to.y());
    const QRgb outlineAtRest = desktop.pixel(outline);
    desktop.movePointer(from);
    desktop.press(Button::Left);
    for (int step = 1; step <= 10; ++step) {
        desktop.movePointer(from + (to - from) * step / 10);
    }
    // The card accepts a drop when it shows so. Keep moving the pointer: a drag is reported to
    // a window only by moves.
    bool isRight = false;
    QVERIFY(waitUntil([&] {
        isRight = !isRight;
        desktop.movePointer(to + QPoint(isRight ? 1 : 0, 0));
        return desktop.pixel(outline) != outlineAtRest;
    }));
    desktop.release(Button::Left);
    QVERIFY(waitUntil([&] {
        return collections(program).first().toObject().value("colorIds"_L1).toArray() == QJsonArray{colorId};
    }));
    QVERIFY(!program.panel().isEmpty());
}

void PanelTest::aPickFromThePanelHidesItUntilItHasItsColor()
{
    PrivateDesktop desktop({});
    TestWindow behind(desktop.connection(), {.geometry = {{0, 0}, desktop.screen().size()}});
    behind.setColor(QColor(30, 144, 255));
    behind.show();
    behind.lower();
    TintwickProcess program(desktop);
    QVERIFY(program.waitForTrayIcon());
    desktop.clickAt(program.trayIcon().center());
    QVERIFY(program.waitForPanel());
    desktop.clickAt(program.panel().topLeft() + pickButton);
    QVERIFY(program.waitForLoupe());
    QVERIFY(program.panel().isEmpty());
    desktop.click();
    QVERIFY(program.waitForClipboard("#1E90FF"));
    QVERIFY(program.waitForPickToEnd());
    QVERIFY(program.waitForPanel());
}

void PanelTest::aPickByTheShortcutDoesNotHideIt()
{
    PrivateDesktop desktop({});
    TestWindow other(desktop.connection(), {.geometry = {40, 300, 200, 200}});
    other.setColor(QColor(30, 144, 255));
    other.show();
    TintwickProcess program(desktop);
    QVERIFY(program.waitForTrayIcon());
    desktop.clickAt(program.trayIcon().center());
    QVERIFY(program.waitForPanel());
    desktop.movePointer({140, 400});
    desktop.typeKey(XK_c, {XK_Alt_L, XK_Shift_L});
    QVERIFY(program.waitForLoupe());
    desktop.click();
    QVERIFY(program.waitForClipboard("#1E90FF"));
    QVERIFY(program.waitForPickToEnd());
    static_cast<void>(desktop.settledScreenshot());
    QVERIFY(!program.panel().isEmpty());
    desktop.clickAt({140, 400});
    QVERIFY(program.waitForPanelToHide());
}

void PanelTest::aRestartedTrayGetsTheIconAgain()
{
    PrivateDesktop desktop({.tray = false});
    TintwickProcess program(desktop);
    const QStringList arguments{u"--edge"_s,      u"top"_s,     u"--align"_s,  u"center"_s,
                                u"--widthtype"_s, u"request"_s, u"--height"_s, u"24"_s};
    for (int round = 0; round < 2; ++round) {
        const auto tray = desktop.start(u"trayer"_s, arguments);
        QVERIFY(program.waitForTrayIcon());
        desktop.clickAt(program.trayIcon().center());
        QVERIFY(program.waitForPanel());
        desktop.clickAt(program.trayIcon().center());
        QVERIFY(program.waitForPanelToHide());
        tray->kill();
        QVERIFY(waitUntil([&] { return program.trayIcon().isEmpty(); }));
    }
    QVERIFY(program.process().isRunning());
}

void PanelTest::withoutATrayTheShortcutOpensIt()
{
    PrivateDesktop desktop({.tray = false});
    keepOpeningShortcut(desktop);
    TestWindow other(desktop.connection(),
                     {.geometry = {40, 300, 200, 200}, .management = TestWindow::Management::Managed});
    other.show();
    other.focus();
    QVERIFY(waitUntil([&] { return desktop.connection().focusedWindow() == other.id(); }));

    TintwickProcess program(desktop);
    const auto pressShortcut = [&] { desktop.typeKey(XK_o, {XK_Alt_L, XK_Shift_L}); };
    QVERIFY(waitUntil([&] {
        pressShortcut();
        return !program.panel().isEmpty();
    }));
    QVERIFY(program.waitForPanel());
    QCOMPARE(program.panel(), QRect(1280 - 8 - 380, 0, 380, 580));

    QVERIFY(waitUntil([&] { return desktop.connection().focusedWindow() != other.id(); }));
    desktop.typeKey(XK_Escape);
    QVERIFY(program.waitForPanelToHide());

    // One press shows it and gives it the keyboard focus.
    other.focus();
    QVERIFY(waitUntil([&] { return desktop.connection().focusedWindow() == other.id(); }));
    pressShortcut();
    QVERIFY(program.waitForPanel());
    QVERIFY(waitUntil([&] { return desktop.connection().focusedWindow() != other.id(); }));
    desktop.typeKey(XK_Escape);
    QVERIFY(program.waitForPanelToHide());
}

void PanelTest::onALowScreenItIsCompletelyVisible()
{
    PrivateDesktop desktop({.size = {1024, 560}});
    TintwickProcess program(desktop);
    QVERIFY(program.waitForTrayIcon());
    const QRect icon = program.trayIcon();
    desktop.clickAt(icon.center());
    QVERIFY(program.waitForPanel());
    QCOMPARE(program.panel().width(), 380);
    QVERIFY(program.panel().height() > 500);
    QVERIFY(desktop.screen().contains(program.panel()));
}

QTEST_GUILESS_MAIN(PanelTest)
#include "PanelTest.moc"
