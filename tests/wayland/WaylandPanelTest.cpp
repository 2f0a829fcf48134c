#include "support/NotifierHost.h"
#include "support/WaitUntil.h"
#include "support/wayland/SwayDesktop.h"
#include "wayland/WaylandTintwick.h"

#include <linux/input-event-codes.h>

#include <QDir>
#include <QFile>
#include <QImage>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QMargins>
#include <QRect>
#include <QTest>

#include <functional>
#include <memory>
#include <optional>

using namespace tintwick;

using Output = WaylandDesktop::Output;

Q_DECLARE_METATYPE(Output)

namespace {

using namespace Qt::StringLiterals;

// In logical units from the top left corner of the panel.
constexpr QPoint header(190, 25);
constexpr QPoint settingsButton(350, 25);
constexpr QPoint pin(271, 25);
constexpr QPoint pinGround(271, 12);
constexpr QPoint seeAll(340, 147);
constexpr QPoint firstSwatch(47, 200);
/// On the screen that "See all" opens.
constexpr QPoint exportButton(284, 76);
constexpr QPoint card(190, 355);
constexpr QPoint cardOutline(16, 355);
constexpr QPoint bottom(190, 560);
/// From the pointer that has opened the menu of a swatch.
constexpr QPoint deleteInMenu(50, 175);
/// In the first item of the menu below the settings button, which has no room on the right.
constexpr QPoint settingsInMenu(290, 62);

constexpr QMargins shadow(36, 28, 36, 44);
constexpr QRgb lightGround = qRgb(0xF5, 0xF5, 0xF7);

const QString red = u"3F2504E0-4F89-41D3-9A0C-0305E82C3301"_s;
const QString green = u"3F2504E0-4F89-41D3-9A0C-0305E82C3302"_s;

/// A red and a green colour, and a palette of the green one.
void keepColors(const PrivateSession& session)
{
    const QString folder = session.dataHome() + u"/Tintwick"_s;
    QVERIFY(QDir().mkpath(folder));
    QFile file(folder + u"/data.json"_s);
    QVERIFY(file.open(QIODevice::WriteOnly));
    const auto color = [](const QString& id, const char* components) {
        return R"({"id": ")" + id.toUtf8() + R"(", )" + components +
               R"(, "blue": 0, "alpha": 1, "capturedAt": "2026-01-02T03:04:05Z"})";
    };
    file.write(
        R"({"history": [)" + color(red, R"("red": 1, "green": 0)") + ", " +
        color(green, R"("red": 0, "green": 1)") +
        R"(], "collections": [{"id": "7D444840-9DC0-11D1-B245-5FFDCE74FAD2", "name": "Brand", "colorIds": [")" +
        green.toUtf8() +
        R"("], "createdAt": "2026-01-02T03:04:05Z", "icon": "paintpalette.fill"}], "defaultFormat": "HEX"})");
}

/// A window as sway reports it.
struct Window
{
    /// In logical units.
    QRect place;
    bool isFloating = false;
    bool isFocused = false;
};

std::optional<Window> windowIn(const QJsonObject& node, const QString& title)
{
    if (node.value("pid"_L1).toInt() != 0 && node.value("name"_L1) == title) {
        const QJsonObject place = node.value("rect"_L1).toObject();
        const auto length = [&](QLatin1StringView name) { return place.value(name).toInt(); };
        return Window{{length("x"_L1), length("y"_L1), length("width"_L1), length("height"_L1)},
                      node.value("type"_L1) == "floating_con"_L1,
                      node.value("focused"_L1).toBool()};
    }
    for (const QLatin1StringView list : {"nodes"_L1, "floating_nodes"_L1}) {
        for (const QJsonValue child : node.value(list).toArray()) {
            if (const auto found = windowIn(child.toObject(), title)) {
                return found;
            }
        }
    }
    return std::nullopt;
}

/// The program on a private sway, whose panel shows a colour and a palette.
class Scene final
{
public:
    explicit Scene(const WaylandDesktop::Options& options = {},
                   const QStringList& arguments = {QStringLiteral("panel")})
        : desktop(options)
    {
        keepColors(desktop.session());
        program.emplace(desktop, arguments);
    }

    SwayDesktop desktop;
    std::optional<WaylandTintwick> program;

    [[nodiscard]] std::optional<Window> window(const QString& title)
    {
        const auto answer = desktop.start(u"swaymsg"_s, {u"--raw"_s, u"-t"_s, u"get_tree"_s});
        return answer->waitForEnd() == 0
                   ? windowIn(QJsonDocument::fromJson(answer->standardOutput()).object(), title)
                   : std::nullopt;
    }
    /// The panel without its shadow, in logical units; empty while it is hidden.
    [[nodiscard]] QRect panel()
    {
        const auto found = window(u"Tintwick"_s);
        return found ? found->place.marginsRemoved(shadow) : QRect();
    }
    [[nodiscard]] bool waitForPanel()
    {
        return waitUntil([this] {
            const auto found = window(u"Tintwick"_s);
            if (found && found->isFocused) {
                m_place = found->place.marginsRemoved(shadow);
                return isPainted();
            }
            return false;
        });
    }
    [[nodiscard]] bool waitForPanelToHide()
    {
        return waitUntil([this] { return panel().isEmpty(); });
    }
    [[nodiscard]] bool waitForWindow(const QString& title)
    {
        return waitUntil([&] {
            const auto found = window(title);
            return found && found->isFocused;
        });
    }

    /// A place in the panel, in physical pixels of the output.
    [[nodiscard]] WaylandDesktop::Pixel at(QPoint inPanel) { return pixelAt(m_place.topLeft() + inPanel); }
    /// A place on the first output.
    [[nodiscard]] WaylandDesktop::Pixel pixelAt(QPoint logical)
    {
        const double scale = double(desktop.outputSize(0).width()) / desktop.outputPlace(0).width();
        return {0, (QPointF(logical) * scale).toPoint()};
    }
    [[nodiscard]] QRgb colorAt(QPoint inPanel) { return desktop.pixel(at(inPanel)); }

    void click(QPoint inPanel, std::uint32_t button = BTN_LEFT)
    {
        desktop.movePointer(at(inPanel));
        desktop.click(button);
    }
    /// Presses the button on the swatch, and moves the pointer to a place until the condition holds.
    [[nodiscard]] bool dragSwatch(const WaylandDesktop::Pixel& to, const std::function<bool()>& condition)
    {
        desktop.movePointer(at(firstSwatch));
        desktop.setButton(BTN_LEFT, true);
        desktop.movePointer(at(firstSwatch + QPoint(0, 20)));
        int step = 0;
        return desktop.waitForRest(0) && waitUntil([&] {
                   desktop.movePointer({to.output, to.point + QPoint(++step % 2, 0)});
                   return condition();
               });
    }
    /// Another program, whose window takes the rest of the screen and the keyboard.
    [[nodiscard]] std::unique_ptr<RunningProgram> startOtherProgram()
    {
        return desktop.start(QStringLiteral(TEXT_PROGRAM), {u"hello"_s}, [] {
            QProcessEnvironment variables;
            variables.insert(u"QT_QPA_PLATFORM"_s, u"wayland"_s);
            return variables;
        }());
    }
    [[nodiscard]] QJsonArray history() { return program->history(); }

private:
    /// The ground beside the title.
    [[nodiscard]] bool isPainted() { return colorAt(header) == lightGround; }

    QRect m_place;
};

} // namespace

/// The panel and the other windows of the program on sway.
class WaylandPanelTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void itOpensInTheTopRightCorner_data();
    void itOpensInTheTopRightCorner();
    void itHasRoundCornersAndAShadow();
    void aWindowThatBecomesActiveHidesIt();
    void keptOpenItStaysBesideAWindowThatBecomesActive();
    void escapeHidesIt();
    void itOpensAgainAndTakesTheKeyboard();
    void aMenuOpensAndChooses();
    void aMenuClosesAtAClickElsewhereInThePanel();
    void aTextOfAnotherProgramIsPasted();
    void aSwatchCopiesAndTheTextStays();
    void aCopiedTextStaysAfterTheEnd();
    void aColorIsDraggedOntoAPalette();
    void aColorIsDraggedIntoAnotherProgram();
    void withoutATrayTheGearOffersTheMenu();
    void aTrayThatStartsLaterGetsTheIcon();
    void aClickOnTheIconOpensThePanelInItsCorner_data();
    void aClickOnTheIconOpensThePanelInItsCorner();
    void theMenuForATrayThatDrawsNoneFloats();
    void theSettingsWindowFloatsAndEscapeClosesIt();
    void theSaveDialogIsAboveThePanel();
    void aPickDoesNotDismissIt();
};

void WaylandPanelTest::itOpensInTheTopRightCorner_data()
{
    QTest::addColumn<Output>("output");
    QTest::addColumn<QRect>("panel");
    QTest::newRow("scale 1") << Output{} << QRect(864, 28, 380, 580);
    QTest::newRow("scale 1.5") << Output{.size = {1920, 1200}, .scale = 1.5} << QRect(864, 28, 380, 580);
    QTest::newRow("scale 2") << Output{.size = {2560, 1600}, .scale = 2} << QRect(864, 28, 380, 580);
    QTest::newRow("a low screen") << Output{.size = {1000, 600}} << QRect(584, 28, 380, 528);
}

void WaylandPanelTest::itOpensInTheTopRightCorner()
{
    QFETCH(const Output, output);
    QFETCH(const QRect, panel);
    Scene scene({.outputs = {output}});
    QVERIFY(scene.waitForPanel());
    QCOMPARE(scene.panel(), panel);
    QVERIFY(scene.window(u"Tintwick"_s)->isFloating);
}

void WaylandPanelTest::itHasRoundCornersAndAShadow()
{
    Scene scene;
    const auto picture = scene.desktop.showPicture();
    QVERIFY(scene.waitForPanel());
    const QImage shown = scene.desktop.screenshot(0);
    const QRect panel = scene.panel();
    const auto isDarker = [&](QPoint point) {
        const QRgb ground = scene.desktop.patternPixel({0, point});
        return qGray(shown.pixel(point)) < qGray(ground);
    };
    QCOMPARE(shown.pixel(panel.center().x(), panel.top() + 3), lightGround);
    QVERIFY(shown.pixel(panel.topLeft() + QPoint(1, 1)) != lightGround);
    QVERIFY(isDarker({panel.center().x(), panel.bottom() + 8}));
    QVERIFY(isDarker({panel.left() - 8, panel.center().y()}));
    const QPoint beyond(panel.left() - 60, panel.center().y());
    QCOMPARE(shown.pixel(beyond), scene.desktop.patternPixel({0, beyond}));
}

void WaylandPanelTest::aWindowThatBecomesActiveHidesIt()
{
    Scene scene;
    QVERIFY(scene.waitForPanel());
    const auto other = scene.startOtherProgram();
    QVERIFY(scene.waitForPanelToHide());
    QVERIFY(scene.waitForWindow(u"Text Program"_s));
}

void WaylandPanelTest::keptOpenItStaysBesideAWindowThatBecomesActive()
{
    Scene scene;
    QVERIFY(scene.waitForPanel());
    const QRgb off = scene.colorAt(pinGround);
    scene.click(pin);
    QVERIFY(waitUntil([&] { return scene.colorAt(pinGround) != off; }));
    const auto other = scene.startOtherProgram();
    QVERIFY(scene.waitForWindow(u"Text Program"_s));
    // Longer than the panel waits for the focus to return.
    QVERIFY(!waitUntil([&] { return scene.panel().isEmpty(); }, std::chrono::milliseconds(500)));
    // A click gives it the keyboard, and then Escape closes it.
    scene.click(bottom);
    QVERIFY(scene.waitForPanel());
    scene.desktop.typeKey(KEY_ESC);
    QVERIFY(scene.waitForPanelToHide());
}

void WaylandPanelTest::escapeHidesIt()
{
    Scene scene;
    QVERIFY(scene.waitForPanel());
    scene.desktop.typeKey(KEY_ESC);
    QVERIFY(scene.waitForPanelToHide());
    QVERIFY(scene.program->process().isRunning());
}

void WaylandPanelTest::itOpensAgainAndTakesTheKeyboard()
{
    Scene scene({.sessionBus = true});
    QVERIFY(scene.waitForPanel());
    const auto other = scene.startOtherProgram();
    QVERIFY(scene.waitForPanelToHide());
    const WaylandTintwick again(scene.desktop, {u"panel"_s});
    QVERIFY(scene.waitForPanel());
    scene.desktop.typeKey(KEY_ESC);
    QVERIFY(scene.waitForPanelToHide());
    QVERIFY(scene.waitForWindow(u"Text Program"_s));
}

void WaylandPanelTest::aMenuOpensAndChooses()
{
    Scene scene;
    QVERIFY(scene.waitForPanel());
    QCOMPARE(scene.history().size(), 2);
    // The menu covers this part of the red swatch.
    const QPoint besidePointer = firstSwatch + QPoint(10, 10);
    QVERIFY(waitUntil([&] { return scene.colorAt(besidePointer) == qRgb(255, 0, 0); }));
    scene.click(firstSwatch, BTN_RIGHT);
    QVERIFY(waitUntil([&] { return scene.colorAt(besidePointer) != qRgb(255, 0, 0); }));
    scene.click(firstSwatch + deleteInMenu);
    QVERIFY(waitUntil([&] { return scene.history().size() == 1; }));
    QVERIFY(!scene.panel().isEmpty());
}

void WaylandPanelTest::aMenuClosesAtAClickElsewhereInThePanel()
{
    Scene scene;
    QVERIFY(scene.waitForPanel());
    const QRgb atRest = scene.colorAt(settingsInMenu);
    scene.click(settingsButton);
    QVERIFY(waitUntil([&] { return scene.colorAt(settingsInMenu) != atRest; }));
    scene.click(bottom);
    QVERIFY(waitUntil([&] { return scene.colorAt(settingsInMenu) == atRest; }));
    QVERIFY(!scene.panel().isEmpty());
}

void WaylandPanelTest::aTextOfAnotherProgramIsPasted()
{
    Scene scene;
    scene.desktop.takeClipboard("Sky: #38BDF8\ngold");
    QVERIFY(scene.waitForPanel());
    scene.desktop.typeKey(KEY_V, {KEY_LEFTCTRL});
    QVERIFY(waitUntil([&] { return scene.history().size() == 4; }));
    QCOMPARE(scene.history()[0]["customName"_L1].toString(), u"Sky"_s);
    QCOMPARE(scene.history()[1]["customName"_L1].toString(), u"Gold"_s);
}

void WaylandPanelTest::aSwatchCopiesAndTheTextStays()
{
    Scene scene;
    scene.desktop.takeClipboard("before");
    QVERIFY(scene.waitForPanel());
    scene.click(firstSwatch);
    QVERIFY(scene.program->waitForClipboard("#FF0000"));
    scene.desktop.typeKey(KEY_ESC);
    QVERIFY(scene.waitForPanelToHide());
    QCOMPARE(scene.desktop.clipboard(), QByteArray("#FF0000"));
}

void WaylandPanelTest::aCopiedTextStaysAfterTheEnd()
{
    Scene scene;
    QVERIFY(scene.waitForPanel());
    scene.click(firstSwatch);
    QVERIFY(scene.program->waitForClipboard("#FF0000"));
    scene.desktop.typeKey(KEY_Q, {KEY_LEFTCTRL});
    QCOMPARE(scene.program->process().waitForEnd(), 0);
    QCOMPARE(scene.desktop.clipboard(), QByteArray("#FF0000"));
}

void WaylandPanelTest::aColorIsDraggedOntoAPalette()
{
    Scene scene;
    QVERIFY(scene.waitForPanel());
    const QRgb atRest = scene.colorAt(cardOutline);
    QVERIFY(scene.dragSwatch(scene.at(card), [&] { return scene.colorAt(cardOutline) != atRest; }));
    scene.desktop.setButton(BTN_LEFT, false);
    QVERIFY(waitUntil([&] {
        const QJsonArray collections = scene.program->data().value("collections"_L1).toArray();
        return collections.first().toObject().value("colorIds"_L1).toArray() == QJsonArray{green, red};
    }));
    // The dragged swatch is not highlighted any more.
    scene.desktop.movePointer(scene.at(card + QPoint(5, 0)));
    QVERIFY(scene.desktop.waitForRest(0));
    QCOMPARE(scene.colorAt(firstSwatch), qRgb(255, 0, 0));
}

void WaylandPanelTest::aColorIsDraggedIntoAnotherProgram()
{
    Scene scene({.sessionBus = true}, {u"--background"_s});
    const auto other = scene.startOtherProgram();
    QVERIFY(scene.waitForWindow(u"Text Program"_s));
    QVERIFY(scene.program->waitForStart());
    const WaylandTintwick command(scene.desktop, {u"panel"_s});
    QVERIFY(scene.waitForPanel());
    const auto said = [&](const QByteArray& line) {
        return other->standardOutput().split('\n').contains(line);
    };
    QVERIFY(scene.dragSwatch(scene.pixelAt({300, 600}), [&] { return said("dragged over"); }));
    QVERIFY(!scene.panel().isEmpty());
    scene.desktop.setButton(BTN_LEFT, false);
    QVERIFY(waitUntil([&] { return said("received " + red.toUtf8()); }));
    QCOMPARE(scene.history().size(), 2);
}

void WaylandPanelTest::withoutATrayTheGearOffersTheMenu()
{
    Scene scene({.sessionBus = true});
    QVERIFY(scene.waitForPanel());
    const QRgb atRest = scene.colorAt(settingsInMenu);
    scene.click(settingsButton);
    QVERIFY(waitUntil([&] { return scene.colorAt(settingsInMenu) != atRest; }));
    // The last item is "Quit Tintwick".
    scene.desktop.typeKey(KEY_UP);
    scene.desktop.typeKey(KEY_ENTER);
    QCOMPARE(scene.program->process().waitForEnd(), 0);
}

void WaylandPanelTest::aTrayThatStartsLaterGetsTheIcon()
{
    Scene scene({.sessionBus = true}, {u"--background"_s});
    QVERIFY(scene.program->waitForStart());
    for (int round = 0; round < 2; ++round) {
        const NotifierHost host(scene.desktop.session().busAddress());
        QVERIFY(host.waitForItem());
        QCOMPARE(host.items().size(), 1);
        QVERIFY(host.activate({1270, 5}));
        QVERIFY(scene.waitForPanel());
        QVERIFY(host.activate({1270, 5}));
        QVERIFY(scene.waitForPanelToHide());
    }
}

void WaylandPanelTest::aClickOnTheIconOpensThePanelInItsCorner_data()
{
    QTest::addColumn<QPoint>("icon");
    QTest::addColumn<QPoint>("panel");
    QTest::newRow("bottom right") << QPoint(1270, 795) << QPoint(864, 176);
    QTest::newRow("bottom left") << QPoint(5, 795) << QPoint(36, 176);
    QTest::newRow("top left") << QPoint(5, 5) << QPoint(36, 28);
    QTest::newRow("a tray that does not report the place") << QPoint(0, 0) << QPoint(864, 28);
}

void WaylandPanelTest::aClickOnTheIconOpensThePanelInItsCorner()
{
    QFETCH(const QPoint, icon);
    QFETCH(const QPoint, panel);
    Scene scene({.sessionBus = true}, {u"--background"_s});
    const NotifierHost host(scene.desktop.session().busAddress());
    QVERIFY(host.waitForItem());
    QVERIFY(host.activate(icon));
    QVERIFY(scene.waitForPanel());
    QCOMPARE(scene.panel().topLeft(), panel);
    QVERIFY(host.activate(icon));
    QVERIFY(scene.waitForPanelToHide());
    // The tray may move.
    QVERIFY(host.activate({1270, 5}));
    QVERIFY(scene.waitForPanel());
    QCOMPARE(scene.panel().topLeft(), QPoint(864, 28));
    QVERIFY(host.activate({1270, 5}));
    QVERIFY(scene.waitForPanelToHide());
    QVERIFY(host.activate(icon));
    QVERIFY(scene.waitForPanel());
    QCOMPARE(scene.panel().topLeft(), panel);
}

void WaylandPanelTest::theMenuForATrayThatDrawsNoneFloats()
{
    Scene scene({.sessionBus = true}, {u"--background"_s});
    const NotifierHost host(scene.desktop.session().busAddress());
    QVERIFY(host.waitForItem());
    QVERIFY(host.requestMenu());
    QVERIFY(scene.waitForWindow(u"Tintwick Menu"_s));
    const auto menu = scene.window(u"Tintwick Menu"_s);
    QVERIFY(menu && menu->isFloating);
    // The last item is "Quit Tintwick".
    scene.desktop.typeKey(KEY_UP);
    scene.desktop.typeKey(KEY_ENTER);
    QCOMPARE(scene.program->process().waitForEnd(), 0);
}

void WaylandPanelTest::theSettingsWindowFloatsAndEscapeClosesIt()
{
    Scene scene({}, {u"settings"_s});
    QVERIFY(scene.waitForWindow(u"Tintwick Settings"_s));
    QVERIFY(scene.window(u"Tintwick Settings"_s)->isFloating);
    scene.desktop.typeKey(KEY_ESC);
    QVERIFY(waitUntil([&] { return !scene.window(u"Tintwick Settings"_s); }));
    QVERIFY(scene.program->process().isRunning());
}

void WaylandPanelTest::theSaveDialogIsAboveThePanel()
{
    Scene scene;
    QVERIFY(scene.waitForPanel());
    scene.click(seeAll);
    QVERIFY(scene.desktop.waitForRest(0));
    scene.click(exportButton);
    QVERIFY(scene.desktop.waitForRest(0));
    // The first item of the menu.
    scene.desktop.typeKey(KEY_DOWN);
    scene.desktop.typeKey(KEY_ENTER);
    QVERIFY(scene.waitForWindow(u"Save As"_s));
    QVERIFY(scene.window(u"Save As"_s)->isFloating);
    QVERIFY(!scene.panel().isEmpty());
    scene.desktop.typeKey(KEY_ESC);
    QVERIFY(scene.waitForPanel());
}

void WaylandPanelTest::aPickDoesNotDismissIt()
{
    Scene scene({.sessionBus = true});
    const auto picture = scene.desktop.showPicture();
    QVERIFY(scene.waitForPanel());
    const QRect place = scene.panel();
    const WaylandDesktop::Pixel beside{0, {200, 400}};
    scene.desktop.movePointer(beside);
    const WaylandTintwick pick(scene.desktop, {u"pick"_s});
    QVERIFY(scene.program->waitForLoupe(beside));
    scene.desktop.typeKey(KEY_ESC);
    QVERIFY(waitUntil([&] { return !scene.program->showsLoupe(beside); }));
    QVERIFY(scene.waitForPanel());
    QCOMPARE(scene.panel(), place);
}

QTEST_GUILESS_MAIN(WaylandPanelTest)
#include "WaylandPanelTest.moc"
