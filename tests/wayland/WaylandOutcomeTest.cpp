#include "desktop/TintwickProcess.h"
#include "support/WaitUntil.h"
#include "support/wayland/SwayDesktop.h"
#include "wayland/WaylandTintwick.h"

#include <linux/input-event-codes.h>

#include <QFile>
#include <QTest>

#include <algorithm>
#include <array>

using namespace tintwick;
using namespace Qt::StringLiterals;

using Keys = std::vector<std::uint32_t>;
using Pixel = WaylandDesktop::Pixel;

Q_DECLARE_METATYPE(Keys)

/// A pick from its start to the clipboard and the data file.
class WaylandOutcomeTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aPickIsCopiedAndSaved_data();
    void aPickIsCopiedAndSaved();
    void theClipboardStaysAfterThePick();
    void escapeChangesNothing_data();
    void escapeChangesNothing();
    void arrowKeysMoveThePickedPosition_data();
    void arrowKeysMoveThePickedPosition();
    void theHandGoesOnFromThePositionOfTheArrowKeys();
    void theWheelZooms();
    void keysZoom();
    void thePointerIsHidden();
    void rTakesThePictureAgain_data();
    void rTakesThePictureAgain();
};

namespace {

const Pixel middle{0, {640, 400}};
constexpr int defaultRadius = 7;

QByteArray fileContents(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// The outermost cells differ between zoom levels; the outline of the centre cell may cover its neighbours.
bool showsRadius(WaylandDesktop& desktop, int radius)
{
    const QImage screen = desktop.screenshot(0);
    const auto shows = [&](int column, int row) {
        return screen.pixel(middleOfCell(desktop, middle, column, row, radius)) ==
               desktop.patternPixel({0, middle.point + QPoint(column, row)});
    };
    return std::ranges::all_of(std::array{-radius, -2, 0, 2, radius},
                               [&](int offset) { return shows(offset, 0) && shows(0, offset); });
}

/// A desktop with the test picture, the running program, and a pick that another process has asked for.
struct PickInProgress
{
    explicit PickInProgress(const Pixel& pixel = middle, const WaylandDesktop::Output& output = {})
        : desktop({.outputs = {output}, .sessionBus = true})
        , picture(desktop.showPicture())
        , program(desktop)
    {
        desktop.movePointer(pixel);
    }

    /// Starts the pick; false when no loupe comes.
    [[nodiscard]] bool start(const Pixel& pixel = middle)
    {
        if (!program.waitForStart()) {
            return false;
        }
        command = std::make_unique<WaylandTintwick>(desktop, QStringList{u"pick"_s});
        return program.waitForLoupe(pixel);
    }

    SwayDesktop desktop;
    std::unique_ptr<RunningProgram> picture;
    WaylandTintwick program;
    std::unique_ptr<WaylandTintwick> command;
};

} // namespace

void WaylandOutcomeTest::aPickIsCopiedAndSaved_data()
{
    QTest::addColumn<bool>("isRunning");
    QTest::addColumn<Keys>("keys");
    QTest::newRow("click, running program") << true << Keys{};
    QTest::newRow("Return, running program") << true << Keys{KEY_ENTER};
    QTest::newRow("Enter on the keypad, running program") << true << Keys{KEY_KPENTER};
    QTest::newRow("Space, running program") << true << Keys{KEY_SPACE};
    QTest::newRow("click, single pick") << false << Keys{};
}

void WaylandOutcomeTest::aPickIsCopiedAndSaved()
{
    QFETCH(const bool, isRunning);
    QFETCH(const Keys, keys);
    SwayDesktop desktop({.sessionBus = true});
    const auto picture = desktop.showPicture();
    std::unique_ptr<WaylandTintwick> program;
    if (isRunning) {
        program = std::make_unique<WaylandTintwick>(desktop);
        QVERIFY(program->waitForStart());
    }
    desktop.movePointer(middle);
    WaylandTintwick command(desktop, {u"pick"_s});
    QVERIFY(command.waitForLoupe(middle));
    if (keys.empty()) {
        desktop.click();
    } else {
        desktop.typeKey(keys.front());
    }
    QCOMPARE(command.process().waitForEnd(), 0);
    const QByteArray text = hexText(desktop.patternPixel(middle));
    QCOMPARE(command.process().standardOutput(), text + '\n');
    QCOMPARE(desktop.clipboard(), text);
    QVERIFY(waitUntil([&] { return command.history().size() == 1; }));
    const QJsonObject record = command.history().first().toObject();
    QCOMPARE(record.value("red"_L1).toDouble(), qRed(desktop.patternPixel(middle)) / 255.0);
    QCOMPARE(record.value("green"_L1).toDouble(), qGreen(desktop.patternPixel(middle)) / 255.0);
    QCOMPARE(record.value("blue"_L1).toDouble(), qBlue(desktop.patternPixel(middle)) / 255.0);
    QVERIFY(command.waitForPickToEnd());
}

void WaylandOutcomeTest::theClipboardStaysAfterThePick()
{
    PickInProgress pick;
    QVERIFY(pick.start());
    pick.desktop.click();
    QCOMPARE(pick.command->process().waitForEnd(), 0);
    const QByteArray text = hexText(pick.desktop.patternPixel(middle));
    QCOMPARE(pick.desktop.clipboard(), text);
    QVERIFY(pick.program.waitForPickToEnd());
    // The time itself is under test: some desktops end a clipboard after the surface is gone.
    QVERIFY(!waitUntil([&] { return pick.desktop.clipboard() != text; }, std::chrono::seconds(5)));
    // Another program takes it over.
    pick.desktop.takeClipboard("theirs");
    QCOMPARE(pick.desktop.clipboard(), QByteArray("theirs"));
}

void WaylandOutcomeTest::escapeChangesNothing_data()
{
    QTest::addColumn<bool>("hasPickedBefore");
    QTest::addColumn<bool>("byButton");
    QTest::newRow("first run") << false << false;
    QTest::newRow("with a colour in the history") << true << false;
    QTest::newRow("by the right button") << true << true;
}

void WaylandOutcomeTest::escapeChangesNothing()
{
    QFETCH(const bool, hasPickedBefore);
    QFETCH(const bool, byButton);
    PickInProgress pick;
    if (hasPickedBefore) {
        QVERIFY(pick.start());
        pick.desktop.click();
        QVERIFY(waitUntil([&] { return pick.program.history().size() == 1; }));
        QCOMPARE(pick.command->process().waitForEnd(), 0);
        QVERIFY(pick.program.waitForPickToEnd());
    }
    pick.desktop.takeClipboard("precious");
    const QByteArray before = fileContents(pick.program.dataFile());

    QVERIFY(pick.start());
    if (byButton) {
        pick.desktop.click(BTN_RIGHT);
    } else {
        pick.desktop.typeKey(KEY_ESC);
    }
    QCOMPARE(pick.command->process().waitForEnd(), 1);
    QCOMPARE(pick.command->process().standardOutput(), QByteArray());
    QVERIFY(pick.program.waitForPickToEnd());
    QCOMPARE(pick.desktop.clipboard(), QByteArray("precious"));
    QCOMPARE(QFile::exists(pick.program.dataFile()), hasPickedBefore);
    QCOMPARE(fileContents(pick.program.dataFile()), before);
}

void WaylandOutcomeTest::arrowKeysMoveThePickedPosition_data()
{
    QTest::addColumn<std::uint32_t>("key");
    QTest::addColumn<bool>("byTen");
    QTest::addColumn<QPoint>("from");
    QTest::addColumn<QPoint>("to");
    QTest::addColumn<double>("scale");
    const auto row = [](const char* name, std::uint32_t key, bool byTen, QPoint from, QPoint to,
                        double scale) { QTest::newRow(name) << key << byTen << from << to << scale; };
    row("left", KEY_LEFT, false, {640, 400}, {639, 400}, 1);
    row("right, scale 2", KEY_RIGHT, false, {640, 400}, {641, 400}, 2);
    row("up, scale 1.5", KEY_UP, false, {641, 401}, {641, 400}, 1.5);
    row("down", KEY_DOWN, false, {640, 400}, {640, 401}, 1);
    row("down, by ten, scale 2", KEY_DOWN, true, {640, 400}, {640, 410}, 2);
    row("not off the screen", KEY_LEFT, true, {3, 400}, {0, 400}, 1);
}

void WaylandOutcomeTest::arrowKeysMoveThePickedPosition()
{
    QFETCH(const std::uint32_t, key);
    QFETCH(const bool, byTen);
    QFETCH(const QPoint, from);
    QFETCH(const QPoint, to);
    QFETCH(const double, scale);
    PickInProgress pick({0, from}, {.size = {1200, 900}, .scale = scale});
    QVERIFY(pick.start({0, from}));
    if (byTen) {
        pick.desktop.typeKey(key, {KEY_LEFTSHIFT});
    } else {
        pick.desktop.typeKey(key);
    }
    QVERIFY(pick.program.waitForLoupe({0, to}));
    pick.desktop.typeKey(KEY_ENTER);
    QCOMPARE(pick.command->process().waitForEnd(), 0);
    QCOMPARE(pick.command->process().standardOutput(), hexText(pick.desktop.patternPixel({0, to})) + '\n');
}

void WaylandOutcomeTest::theHandGoesOnFromThePositionOfTheArrowKeys()
{
    PickInProgress pick;
    QVERIFY(pick.start());
    for (int i = 0; i < 3; ++i) {
        pick.desktop.typeKey(KEY_RIGHT, {KEY_LEFTSHIFT});
    }
    QVERIFY(pick.program.waitForLoupe({0, middle.point + QPoint(30, 0)}));
    pick.desktop.movePointer({0, middle.point + QPoint(5, 7)});
    QVERIFY(pick.program.waitForLoupe({0, middle.point + QPoint(35, 7)}));
    pick.desktop.click();
    QCOMPARE(pick.command->process().waitForEnd(), 0);
    QCOMPARE(pick.command->process().standardOutput(),
             hexText(pick.desktop.patternPixel({0, middle.point + QPoint(35, 7)})) + '\n');
}

void WaylandOutcomeTest::theWheelZooms()
{
    PickInProgress pick;
    QVERIFY(pick.start());
    const auto waitForRadius = [&](int radius) {
        return waitUntil([&] { return showsRadius(pick.desktop, radius); });
    };
    QVERIFY(waitForRadius(defaultRadius));
    // A notch is three of the five units of a step, and the rest carries over.
    pick.desktop.scroll(2);
    QVERIFY(waitForRadius(6));
    pick.desktop.scroll(-4);
    QVERIFY(waitForRadius(8));
    pick.desktop.scroll(-40);
    QVERIFY(waitForRadius(15));
    pick.desktop.scroll(40);
    QVERIFY(waitForRadius(3));
}

void WaylandOutcomeTest::keysZoom()
{
    PickInProgress pick;
    QVERIFY(pick.start());
    pick.desktop.typeKey(KEY_EQUAL, {KEY_LEFTCTRL});
    QVERIFY(waitUntil([&] { return showsRadius(pick.desktop, 6); }));
    pick.desktop.typeKey(KEY_MINUS, {KEY_LEFTCTRL});
    pick.desktop.typeKey(KEY_MINUS, {KEY_LEFTCTRL});
    QVERIFY(waitUntil([&] { return showsRadius(pick.desktop, 8); }));
}

void WaylandOutcomeTest::thePointerIsHidden()
{
    SwayDesktop desktop({.showsPointer = true});
    const auto picture = desktop.showPicture();
    desktop.movePointer({0, {100, 100}});
    QVERIFY(waitUntil([&] { return !desktop.showsPictureOnly(0); }));
    WaylandTintwick program(desktop, {u"pick"_s});
    QVERIFY(waitUntil([&] { return program.showsLoupe({0, {100, 100}}); }));
    // The compositor draws the pointer above all else, also above the loupe's centre cell.
    desktop.movePointer(middle);
    QVERIFY(program.waitForLoupe(middle));
    desktop.typeKey(KEY_ESC);
    QCOMPARE(program.process().waitForEnd(), 1);
}

void WaylandOutcomeTest::rTakesThePictureAgain_data()
{
    QTest::addColumn<std::uint32_t>("key");
    QTest::newRow("R") << std::uint32_t{KEY_R};
    QTest::newRow("F5") << std::uint32_t{KEY_F5};
}

void WaylandOutcomeTest::rTakesThePictureAgain()
{
    QFETCH(const std::uint32_t, key);
    PickInProgress pick;
    QVERIFY(pick.start());
    const auto orange = pick.desktop.showColor(QColor(0xff, 0x88, 0x00));
    // The picture of the start stays.
    const Pixel beside{0, middle.point + QPoint(40, 40)};
    pick.desktop.movePointer(beside);
    QVERIFY(pick.program.waitForLoupe(beside));
    pick.desktop.typeKey(key);
    QVERIFY(pick.program.waitForLoupe(beside, qRgb(0xff, 0x88, 0x00)));
    pick.desktop.click();
    QCOMPARE(pick.command->process().waitForEnd(), 0);
    QCOMPARE(pick.command->process().standardOutput(), QByteArray("#FF8800\n"));
}

QTEST_GUILESS_MAIN(WaylandOutcomeTest)
#include "WaylandOutcomeTest.moc"
