// Measurements of a pick on a headless sway, as those of desktop.cpp on X11.
//
// usage: tintwick_bench_wayland [--idle-seconds N]

#include "LoupeTiming.h"
#include "Measuring.h"
#include "ProcessFigures.h"
#include "Table.h"

#include "desktop/TintwickProcess.h"
#include "support/WaitUntil.h"
#include "support/wayland/SwayDesktop.h"
#include "wayland/WaylandTintwick.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusMessage>

#include <linux/input-event-codes.h>

#include <array>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <string>
#include <vector>

namespace {

using namespace tintwick;
using Pixel = WaylandDesktop::Pixel;

/// Several frames, so that the compositor has nothing to draw.
void waitForIdleCompositor()
{
    static_cast<void>(waitUntil([] { return false; }, std::chrono::milliseconds(60)));
}

/// A running program on a sway with the test picture.
class Scene final
{
public:
    explicit Scene(const std::vector<WaylandDesktop::Output>& outputs)
        : m_desktop({.outputs = outputs, .sessionBus = true})
        , m_picture(m_desktop.showPicture())
        , m_program(m_desktop)
        , m_bus(QDBusConnection::connectToBus(m_desktop.session().busAddress(), busName()))
    {
        require(m_program.waitForStart(), "the program does not start");
        waitForRest(process());
    }
    ~Scene() { QDBusConnection::disconnectFromBus(busName()); }

    [[nodiscard]] SwayDesktop& desktop() { return m_desktop; }
    [[nodiscard]] WaylandTintwick& program() { return m_program; }
    [[nodiscard]] qint64 process() { return m_program.process().processId(); }

    void startPick()
    {
        auto call = QDBusMessage::createMethodCall(
            QStringLiteral("org.tintwick.Tintwick"), QStringLiteral("/org/tintwick/Tintwick"),
            QStringLiteral("org.freedesktop.Application"), QStringLiteral("ActivateAction"));
        call << QStringLiteral("pick") << QVariantList() << QVariantMap();
        m_bus.send(call);
    }
    void startPick(const Pixel& pixel)
    {
        m_desktop.movePointer(pixel);
        startPick();
        require(m_program.waitForLoupe(pixel), "no loupe");
    }
    void cancelPick()
    {
        m_desktop.typeKey(KEY_ESC);
        require(m_program.waitForPickToEnd(), "the pick does not end");
    }
    void pick(const Pixel& pixel)
    {
        startPick(pixel);
        m_desktop.click();
        require(m_program.waitForPickToEnd(), "the pick does not end");
    }

private:
    static QString busName() { return QStringLiteral("bench"); }

    SwayDesktop m_desktop;
    std::unique_ptr<RunningProgram> m_picture;
    WaylandTintwick m_program;
    QDBusConnection m_bus;
};

Pixel pixelOf(int step)
{
    return {0, {300 + step * 37 % 700, 250 + step * 23 % 500}};
}

/// From the call on the session bus to the frame of the compositor that shows the loupe, in ms.
double timeToLoupe(Scene& scene, const Pixel& pixel)
{
    SwayDesktop& desktop = scene.desktop();
    desktop.movePointer(pixel);
    const QPoint watched = onRing(loupePlace(pixel.point, desktop.screen(pixel.output)));
    const auto& output = desktop.output(pixel.output);
    // Takes what has changed until now.
    static_cast<void>(desktop.capture().capture(output, OutputFrame::Kind::Changed));
    waitForIdleCompositor();
    const auto start = Clock::now();
    scene.startPick();
    while (true) {
        const auto picture = desktop.capture().capture(output, OutputFrame::Kind::Changed);
        require(picture && Clock::now() - start < std::chrono::seconds(5), "no loupe");
        if (picture->image.pixel(watched) == ringColor) {
            return Milliseconds(picture->time - start).count();
        }
    }
}

double pickTime(Scene& scene, int count)
{
    std::vector<double> times;
    for (int step = 0; step < count; ++step) {
        times.push_back(timeToLoupe(scene, pixelOf(step)));
        scene.cancelPick();
    }
    return median(times);
}

/// A client that copies each output once, into new memory, and does nothing else.
double bareCopyTime(SwayDesktop& desktop, int count)
{
    std::vector<double> times;
    for (int i = 0; i < count; ++i) {
        waitForIdleCompositor();
        const auto start = Clock::now();
        require(desktop.capture().captureAll(), "the compositor delivers no picture");
        times.push_back(millisecondsSince(start));
    }
    return median(times);
}

double grimTime(SwayDesktop& desktop, int count)
{
    const QString file = desktop.session().homeFolder() + QStringLiteral("/grim.png");
    std::vector<double> times;
    for (int i = 0; i < count; ++i) {
        waitForIdleCompositor();
        const auto start = Clock::now();
        const auto grim = desktop.start(QStringLiteral("grim"), {file});
        require(grim->waitForEnd(std::chrono::seconds(60)) == 0, "grim fails");
        times.push_back(millisecondsSince(start));
    }
    return median(times);
}

std::string beside(const char* what, double other, double figure)
{
    std::array<char, 96> text{};
    std::snprintf(text.data(), text.size(), "%s %.1f ms, beyond it %.1f ms", what, other, figure - other);
    return text.data();
}

void measureFirstFrame()
{
    constexpr int runs = 25;
    Scene scene({{.size = {1920, 1080}}});
    const double own = pickTime(scene, runs);
    printRow("sway, pick to the loupe's first frame, 1080p (aim 33)", own, "ms",
             beside("bare screencopy (aim +12)", bareCopyTime(scene.desktop(), runs), own));
    printRow("", own, "ms", beside("grim to a file", grimTime(scene.desktop(), 5), own));
}

void measureFirstFrameOfLargeOutputs()
{
    constexpr int runs = 15;
    Scene scene({{.size = {3840, 2160}}, {.size = {3840, 2160}, .position = {3840, 0}}});
    const double own = pickTime(scene, runs);
    printRow("sway, the same on two outputs of 2160p", own, "ms",
             beside("bare screencopies (aim +15)", bareCopyTime(scene.desktop(), runs), own));
}

void measureMoves()
{
    constexpr int moves = 300;
    Scene scene({{.size = {1920, 1080}}});
    scene.startPick(pixelOf(0));
    const double before = processorTime(scene.process());
    for (int step = 1; step <= moves; ++step) {
        scene.desktop().movePointer(pixelOf(step));
        // Wait for each move, so that none is merged with the next.
        require(scene.program().waitForLoupe(pixelOf(step)), "the loupe does not follow");
    }
    printRow("sway, one move, processor time, radius 7 (aim 0.3)",
             (processorTime(scene.process()) - before) / moves, "ms");
}

/// In MB: memory of the process, and memory that it shares with the compositor, which is not all resident in it.
double memoryWithPictures(qint64 process)
{
    constexpr double bytesPerMegabyte = 1024 * 1024;
    constexpr double kilobytesPerMegabyte = 1024;
    const QString folder = QStringLiteral("/proc/%1/").arg(process);
    double megabytes = 0;
    for (const char* kind : {"RssAnon", "RssFile"}) {
        megabytes += valueOf(folder + QStringLiteral("status"), kind).split(' ').first().toDouble() /
                     kilobytesPerMegabyte;
    }
    for (const QByteArray& line : contents(folder + QStringLiteral("maps")).split('\n')) {
        if (line.contains("memfd:")) {
            const QByteArrayList range = line.split(' ').first().split('-');
            megabytes += static_cast<double>(range.value(1).toULongLong(nullptr, 16) -
                                             range.value(0).toULongLong(nullptr, 16)) /
                         bytesPerMegabyte;
        }
    }
    return megabytes;
}

void measureMemory()
{
    constexpr int picks = 20;
    constexpr double picture = 3840.0 * 2160 * 4 / (1024 * 1024);
    Scene scene({{.size = {3840, 2160}}});
    const double fresh = memoryOf(scene.process()).resident;
    // The first picks load fonts and code that stay.
    for (int i = 0; i < picks; ++i) {
        scene.pick(pixelOf(i));
    }
    const double before = memoryOf(scene.process()).resident;
    const double withoutPick = memoryWithPictures(scene.process());
    scene.startPick(pixelOf(1));
    scene.desktop().movePointer(pixelOf(2));
    require(scene.program().waitForLoupe(pixelOf(2)), "the loupe does not follow");
    printRow("sway, memory of a pick at 2160p beyond the picture (aim 4)",
             memoryWithPictures(scene.process()) - withoutPick - picture, "MB",
             "picture " + std::to_string(picture) + " MB");
    scene.cancelPick();
    for (int i = 0; i < picks; ++i) {
        scene.pick(pixelOf(i));
    }
    printRow("sway, growth of resident memory by 20 picks at 2160p (aim 2)",
             memoryOf(scene.process()).resident - before, "MB",
             "by the first 20 picks " + std::to_string(before - fresh) + " MB");
}

void measureIdle(std::chrono::seconds idle)
{
    Scene scene({{.size = {1920, 1080}}});
    scene.pick(pixelOf(0));
    waitForRest(scene.process());
    printWakeUps("sway, wake-ups when idle after a pick (aim 0)", scene.process(), idle);
    const Memory own = memoryOf(scene.process());
    printRow("sway, resident memory when idle (aim 40)", own.resident, "MB",
             "PSS " + std::to_string(own.proportional) + " MB");
}

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    QCommandLineParser parser;
    const QCommandLineOption idleSeconds(QStringLiteral("idle-seconds"),
                                         QStringLiteral("How long to watch the idle program."),
                                         QStringLiteral("N"), QStringLiteral("60"));
    parser.addOption(idleSeconds);
    parser.addHelpOption();
    parser.process(application);
    try {
        measureFirstFrame();
        measureFirstFrameOfLargeOutputs();
        measureMoves();
        measureMemory();
        measureIdle(std::chrono::seconds(parser.value(idleSeconds).toInt()));
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return EXIT_FAILURE;
    }
    return EXIT_SUCCESS;
}
