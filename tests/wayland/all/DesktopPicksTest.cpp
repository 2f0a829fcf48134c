#include "desktop/TintwickProcess.h"
#include "support/WaitUntil.h"
#include "support/wayland/GnomeDesktop.h"
#include "support/wayland/KWinDesktop.h"
#include "support/wayland/PixelChoice.h"
#include "wayland/WaylandTintwick.h"

#include <linux/input-event-codes.h>

#include <QDebug>
#include <QDir>
#include <QFile>
#include <QTest>

#include <algorithm>
#include <cmath>
#include <memory>
#include <span>
#include <vector>

using namespace tintwick;
using namespace Qt::StringLiterals;

using Outputs = std::vector<WaylandDesktop::Output>;
using Pixel = WaylandDesktop::Pixel;

Q_DECLARE_METATYPE(Outputs)

namespace {

enum class Kind { KWin, Gnome };

} // namespace

Q_DECLARE_METATYPE(Kind)

/// Picks on KWin and GNOME Shell.
class DesktopPicksTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aClickPicksThePixelUnderThePointer_data();
    void aClickPicksThePixelUnderThePointer();
    void arrowKeysReachTheNextOutput_data();
    void arrowKeysReachTheNextOutput();
    void escapeChangesNothing_data();
    void escapeChangesNothing();
    void anotherProgramReadsThePick_data();
    void anotherProgramReadsThePick();
    void fiftyPicksLeaveNothingBehind_data();
    void fiftyPicksLeaveNothingBehind();
    void theEndOfTheCompositorEndsTheProgram_data();
    void theEndOfTheCompositorEndsTheProgram();
    void aDesktopThatDeniesScreenshotsRefusesThePick();
    void aProgramThatKWinDoesNotKnowIsRefused();
};

namespace {

std::unique_ptr<WaylandDesktop> startDesktop(Kind kind, const Outputs& outputs)
{
    if (kind == Kind::Gnome) {
        return std::make_unique<GnomeDesktop>(GnomeDesktop::GnomeOptions{.outputs = outputs});
    }
    return std::make_unique<KWinDesktop>(KWinDesktop::KWinOptions{
        .outputs = outputs, .mayTakeScreenshots = {QStringLiteral(TINTWICK_PROGRAM)}});
}

/// KWin reports whole logical units, and GNOME Shell stops the pointer one unit before the right and the bottom end of the
/// desktop. The arrow keys reach all other pixels.
QPoint reachedByPointer(Kind kind, WaylandDesktop& desktop, const Pixel& pixel)
{
    const QSize logical = desktop.outputPlace(pixel.output).size();
    const QSize size = desktop.outputSize(pixel.output);
    const auto reached = [kind](int position, int units, int pixels) {
        const double unit = std::min((position + 0.5) * units / pixels, units - 1.0);
        return kind == Kind::KWin ? static_cast<int>(std::floor(unit) * pixels / units)
                                  : std::min(position, (units - 1) * pixels / units);
    };
    return {reached(pixel.point.x(), logical.width(), size.width()),
            reached(pixel.point.y(), logical.height(), size.height())};
}

void pressArrowKeys(WaylandDesktop& desktop, QPoint reached, const Pixel& pixel)
{
    for (int x = reached.x(); x < pixel.point.x(); ++x) {
        desktop.typeKey(KEY_RIGHT);
    }
    for (int y = reached.y(); y < pixel.point.y(); ++y) {
        desktop.typeKey(KEY_DOWN);
    }
}

/// Picks the pixels one after the other in one pick, and compares the colours.
bool picksAll(Kind kind, WaylandDesktop& desktop, std::span<const Pixel> pixels)
{
    desktop.movePointer({pixels.front().output, reachedByPointer(kind, desktop, pixels.front())});
    WaylandTintwick program(desktop,
                            {u"pick"_s, u"--no-copy"_s, u"--count"_s, QString::number(pixels.size())});
    QByteArray expected;
    for (const Pixel& pixel : pixels) {
        const Pixel reached{pixel.output, reachedByPointer(kind, desktop, pixel)};
        desktop.movePointer(reached);
        // Keys before the first frame are not for the loupe.
        if (!program.waitForLoupe(reached)) {
            qWarning("no loupe near %s", description(pixel).constData());
            return false;
        }
        pressArrowKeys(desktop, reached.point, pixel);
        if (!program.waitForLoupe(pixel)) {
            qWarning("no loupe at %s %s", description(pixel).constData(),
                     program.process().standardError().constData());
            return false;
        }
        desktop.click();
        expected += hexText(desktop.patternPixel(pixel)) + '\n';
    }
    const bool hasEnded = program.process().waitForEnd() == 0 && program.waitForPickToEnd();
    if (!hasEnded || program.process().standardOutput() != expected) {
        qWarning("picked %s instead of %s", program.process().standardOutput().constData(),
                 expected.constData());
        return false;
    }
    return true;
}

void addDesktops()
{
    QTest::addColumn<Kind>("kind");
    QTest::newRow("KWin") << Kind::KWin;
    QTest::newRow("GNOME") << Kind::Gnome;
}

const Pixel middle{0, {640, 400}};

/// The numbers of descriptors, threads and shared buffers of a process.
QList<qsizetype> heldBy(qint64 process)
{
    const auto entries = [process](const char* folder) {
        return QDir(u"/proc/%1/%2"_s.arg(process).arg(QLatin1StringView(folder)))
            .entryList(QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot)
            .size();
    };
    QFile maps(u"/proc/%1/maps"_s.arg(process));
    const qsizetype buffers = maps.open(QIODevice::ReadOnly) ? maps.readAll().count("tintwick-pixels") : -1;
    return {entries("fd"), entries("task"), buffers};
}

} // namespace

void DesktopPicksTest::aClickPicksThePixelUnderThePointer_data()
{
    QTest::addColumn<Kind>("kind");
    QTest::addColumn<Outputs>("outputs");
    // The sizes let GNOME Shell offer these scales.
    const QSize size(1200, 720);
    const QSize large(1600, 960);
    const auto addRows = [&](const char* name, Kind kind) {
        const auto row = [name](const char* what) { return QByteArray(name) + ", " + what; };
        QTest::newRow(row("scale 1")) << kind << Outputs{{.size = size}};
        QTest::newRow(row("scale 1.5")) << kind << Outputs{{.size = size, .scale = 1.5}};
        QTest::newRow(row("scale 2")) << kind << Outputs{{.size = large, .scale = 2}};
    };
    addRows("KWin", Kind::KWin);
    QTest::newRow("KWin, scales 1 and 1.5")
        << Kind::KWin << Outputs{{.size = size}, {.size = size, .scale = 1.5, .position = {1200, 0}}};
    QTest::newRow("KWin, scales 2 and 1")
        << Kind::KWin << Outputs{{.size = size, .scale = 2}, {.size = size, .position = {600, 0}}};
    addRows("GNOME", Kind::Gnome);
    // Without fractional scales the positions are physical pixels.
    QTest::newRow("GNOME, scales 2 and 1")
        << Kind::Gnome << Outputs{{.size = large, .scale = 2}, {.size = size, .position = {1600, 0}}};
    QTest::newRow("GNOME, two at scale 1.5")
        << Kind::Gnome
        << Outputs{{.size = size, .scale = 1.5}, {.size = size, .scale = 1.5, .position = {800, 0}}};
}

void DesktopPicksTest::aClickPicksThePixelUnderThePointer()
{
    QFETCH(const Kind, kind);
    QFETCH(const Outputs, outputs);
    const auto desktop = startDesktop(kind, outputs);
    const auto picture = desktop->showPicture();
    std::vector<Pixel> pixels = cornersAndEdges(*desktop);
    for (Pixel pixel : randomPixels(*desktop, 200)) {
        pixel.point = reachedByPointer(kind, *desktop, pixel);
        pixels.push_back(pixel);
    }
    const auto anywhere = randomPixels(*desktop, 10);
    pixels.insert(pixels.end(), anywhere.begin(), anywhere.end());

    // The arrow keys lead away from the pointer, so those pixels need a pick of their own.
    const auto beyond = std::stable_partition(pixels.begin(), pixels.end(), [&](const Pixel& pixel) {
        return reachedByPointer(kind, *desktop, pixel) == pixel.point;
    });
    const auto direct = static_cast<std::size_t>(beyond - pixels.begin());
    constexpr std::size_t most = 20;
    for (std::size_t first = 0; first < pixels.size();) {
        const std::size_t count = first < direct ? std::min(most, direct - first) : 1;
        QVERIFY(picksAll(kind, *desktop, std::span(pixels).subspan(first, count)));
        first += count;
    }
}

void DesktopPicksTest::arrowKeysReachTheNextOutput_data()
{
    QTest::addColumn<Kind>("kind");
    QTest::addColumn<Outputs>("outputs");
    QTest::newRow("KWin") << Kind::KWin
                          << Outputs{{.size = {1200, 720}, .scale = 2},
                                     {.size = {1200, 720}, .position = {600, 0}}};
    QTest::newRow("GNOME") << Kind::Gnome
                           << Outputs{{.size = {1600, 960}, .scale = 2},
                                      {.size = {1200, 720}, .position = {1600, 0}}};
}

void DesktopPicksTest::arrowKeysReachTheNextOutput()
{
    QFETCH(const Kind, kind);
    QFETCH(const Outputs, outputs);
    const auto desktop = startDesktop(kind, outputs);
    const auto picture = desktop->showPicture();
    const Pixel start{0, {outputs[0].size.width() - 2, 300}};
    desktop->movePointer(start);
    WaylandTintwick program(*desktop, {u"pick"_s});
    QVERIFY(program.waitForLoupe(start));
    desktop->typeKey(KEY_RIGHT);
    desktop->typeKey(KEY_RIGHT);
    // KWin places its outputs in logical units, of which one has two pixels on the first.
    const Pixel expected{1, {0, kind == Kind::KWin ? 150 : 300}};
    QVERIFY(program.waitForLoupe(expected));
    desktop->click();
    QCOMPARE(program.process().waitForEnd(), 0);
    QCOMPARE(program.process().standardOutput(), hexText(desktop->patternPixel(expected)) + '\n');
}

void DesktopPicksTest::escapeChangesNothing_data()
{
    addDesktops();
}

void DesktopPicksTest::escapeChangesNothing()
{
    QFETCH(const Kind, kind);
    const auto desktop = startDesktop(kind, {{}});
    const auto picture = desktop->showPicture();
    desktop->takeClipboard("precious");
    desktop->movePointer(middle);
    WaylandTintwick program(*desktop, {u"pick"_s});
    QVERIFY(program.waitForLoupe(middle));
    desktop->typeKey(KEY_ESC);
    QCOMPARE(program.process().waitForEnd(), 1);
    QVERIFY(program.waitForPickToEnd());
    QCOMPARE(desktop->clipboard(), QByteArray("precious"));
    QVERIFY(!QFile::exists(program.dataFile()));
}

void DesktopPicksTest::anotherProgramReadsThePick_data()
{
    addDesktops();
}

void DesktopPicksTest::anotherProgramReadsThePick()
{
    QFETCH(const Kind, kind);
    const auto desktop = startDesktop(kind, {{}});
    const auto picture = desktop->showPicture();
    WaylandTintwick program(*desktop);
    QVERIFY(program.waitForStart());
    desktop->movePointer(middle);
    WaylandTintwick command(*desktop, {u"pick"_s});
    QVERIFY(command.waitForLoupe(middle));
    desktop->click();
    QCOMPARE(command.process().waitForEnd(), 0);
    const QByteArray text = hexText(desktop->patternPixel(middle));
    QVERIFY2(program.waitForClipboard(text), desktop->clipboard());
    // Some desktops take the clipboard away some time after the window that set it is gone.
    const auto fiveSecondsLater = std::chrono::steady_clock::now() + std::chrono::seconds(5);
    QVERIFY(waitUntil([&] { return std::chrono::steady_clock::now() >= fiveSecondsLater; }));
    QCOMPARE(desktop->clipboard(), text);
}

void DesktopPicksTest::fiftyPicksLeaveNothingBehind_data()
{
    addDesktops();
}

void DesktopPicksTest::fiftyPicksLeaveNothingBehind()
{
    QFETCH(const Kind, kind);
    const auto desktop = startDesktop(kind, {{}});
    const auto picture = desktop->showPicture();
    WaylandTintwick program(*desktop);
    QVERIFY(program.waitForStart());
    const auto pick = [&](int count) {
        for (int i = 0; i < count; ++i) {
            const Pixel pixel{0, middle.point + QPoint(i * 37 % 500, i * 23 % 300)};
            desktop->movePointer(pixel);
            WaylandTintwick command(*desktop, {u"pick"_s, u"--no-save"_s});
            if (!command.waitForLoupe(pixel)) {
                return false;
            }
            desktop->click();
            if (command.process().waitForEnd() != 0 || !program.waitForPickToEnd()) {
                return false;
            }
        }
        return true;
    };
    // The first picks open what stays open.
    QVERIFY(pick(3));
    const auto held = [&] { return heldBy(program.process().processId()); };
    const QList<qsizetype> before = held();
    QVERIFY(pick(50));
    QVERIFY2(waitUntil([&] { return held() == before; }, std::chrono::seconds(5)),
             qPrintable(QDebug::toString(before) + u" became "_s + QDebug::toString(held())));
    QCOMPARE(QDir(desktop->session().homeFolder()).entryList({u"*.png"_s}), QStringList());
}

void DesktopPicksTest::theEndOfTheCompositorEndsTheProgram_data()
{
    addDesktops();
}

void DesktopPicksTest::theEndOfTheCompositorEndsTheProgram()
{
    QFETCH(const Kind, kind);
    const auto desktop = startDesktop(kind, {{}});
    const auto picture = desktop->showPicture();
    WaylandTintwick program(*desktop);
    QVERIFY(program.waitForStart());
    desktop->movePointer(middle);
    WaylandTintwick command(*desktop, {u"pick"_s});
    QVERIFY(command.waitForLoupe(middle));
    desktop->endCompositor();
    const auto status = program.process().waitForEnd();
    QVERIFY(status.has_value());
    QVERIFY2(*status > 0, QByteArray::number(*status));
    const QByteArray error = program.process().standardError();
    QVERIFY2(error.count('\n') == 1 && error.startsWith("tintwick: "), error);
}

void DesktopPicksTest::aDesktopThatDeniesScreenshotsRefusesThePick()
{
    GnomeDesktop desktop({.screenshots = GnomeDesktop::Screenshots::Denied});
    WaylandTintwick program(desktop, {u"pick"_s});
    QVERIFY(program.process().waitForEnd().value_or(0) > 0);
    QCOMPARE(
        program.process().standardError(),
        QByteArray("tintwick: No color can be picked: the desktop does not allow Tintwick to take pictures "
                   "of the screen.\n"));
}

void DesktopPicksTest::aProgramThatKWinDoesNotKnowIsRefused()
{
    KWinDesktop desktop({});
    WaylandTintwick program(desktop, {u"pick"_s});
    QVERIFY(program.process().waitForEnd().value_or(0) > 0);
    QCOMPARE(
        program.process().standardError(),
        QByteArray("tintwick: No color can be picked: the desktop returned no picture of the screen.\n"));
}

QTEST_GUILESS_MAIN(DesktopPicksTest)
#include "DesktopPicksTest.moc"
