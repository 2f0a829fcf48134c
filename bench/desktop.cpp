// Measurements on a whole desktop: the time until something is visible, and the cost of the idle program. Each
// figure is compared with a lower bound or another program, measured in the same run.
//
// usage: tintwick_bench_desktop [--idle-seconds N]

#include "FullPayload.h"
#include "LoupeTiming.h"
#include "Measuring.h"
#include "PeerTiming.h"
#include "ProcessFigures.h"
#include "Table.h"

#include "PayloadCoding.h"
#include "desktop/TintwickProcess.h"
#include "support/PrivateDesktop.h"
#include "support/WaitUntil.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QSysInfo>

#include <X11/keysym.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include <unistd.h>

namespace {

using namespace tintwick;

constexpr std::chrono::seconds panelWatched{10};

void print(const char* what, double figure, const char* unit, const char* besideWhat, double beside)
{
    std::array<char, 80> text{};
    std::snprintf(text.data(), text.size(), "%s %.3f %s, ratio %.2f", besideWhat, beside, unit,
                  figure / beside);
    printRow(what, figure, unit, text.data());
}

struct Start
{
    double time = 0;
    double processorTime = 0;
};

/// Until the icon is in the tray.
Start ownStart(PrivateDesktop& desktop)
{
    std::vector<double> times;
    std::vector<double> processorTimes;
    for (int i = 0; i < 5; ++i) {
        const auto start = Clock::now();
        TintwickProcess program(desktop);
        require(waitUntil([&] { return program.trayIcon().width() > 4; }), "no tray icon");
        times.push_back(millisecondsSince(start));
        processorTimes.push_back(processorTime(program.process().processId()));
    }
    return {median(times), median(processorTimes)};
}

/// From the click on "Pick Color" to the loupe's first frame on the screen.
double pickTime(PrivateDesktop& desktop, TintwickProcess& program)
{
    std::vector<double> times;
    for (int i = 0; i < 9; ++i) {
        require(program.openMenu(), "no menu");
        program.pointAtPick();
        desktop.press(PrivateDesktop::Button::Left);
        times.push_back(
            timeToLoupe(desktop, program, [&] { desktop.release(PrivateDesktop::Button::Left); }));
    }
    return median(times);
}

/// One plain GetImage of as many pixels as the largest loupe samples.
double floorOfGrab(PrivateDesktop& desktop)
{
    constexpr int count = 500;
    const auto start = Clock::now();
    for (int i = 0; i < count; ++i) {
        static_cast<void>(desktop.connection().screenshot({200 + i, 200, 31, 31}));
    }
    return millisecondsSince(start) / count;
}

QPoint onPath(int step)
{
    return {400 + step % 600, 300 + step % 400};
}

double processorTimePerMove(PrivateDesktop& desktop, TintwickProcess& program)
{
    constexpr int count = 500;
    const qint64 process = program.process().processId();
    const double before = processorTime(process);
    for (int step = 0; step < count; ++step) {
        const QPoint position = onPath(step);
        desktop.movePointer(position);
        // Wait for each move, so that none is merged with the next.
        const QRect place = loupePlace(position, desktop.screen());
        require(waitUntil([&] { return program.loupe() == place; }), "the loupe does not follow");
    }
    return (processorTime(process) - before) / count;
}

/// Sends a thousand moves a second for ten seconds, then measures the time until the loupe shows the last position.
double backlogTime(PrivateDesktop& desktop, TintwickProcess& program, QPoint last, QRgb colorThere)
{
    constexpr int count = 10000;
    const auto start = Clock::now();
    for (int step = 0; step < count; ++step) {
        desktop.movePointer(onPath(step));
        static_cast<void>(waitUntil([&] { return Clock::now() >= start + std::chrono::milliseconds(step); }));
    }
    desktop.movePointer(last);
    const auto stopped = Clock::now();
    const QRect place = loupePlace(last, desktop.screen());
    while (program.loupe() != place || program.centerCell() != colorThere) {
        require(Clock::now() - stopped < std::chrono::seconds(20), "the loupe does not arrive");
    }
    return millisecondsSince(stopped);
}

Memory memoryOfPeer(PrivateDesktop& desktop, const QString& program)
{
    const auto process = desktop.start(program);
    require(waitUntil([&] { return ownsViewableWindow(desktop, process->processId(), program.toUtf8()); },
                      std::chrono::seconds(20)),
            "a peer shows no window");
    static_cast<void>(desktop.settledScreenshot());
    return memoryOf(process->processId());
}

void measureStart()
{
    PrivateDesktop desktop({.size = {1920, 1080}});
    const auto [own, processor] = ownStart(desktop);
    print("start to tray icon (aim 60)", own, "ms", "gpick to window",
          startTime(desktop, QStringLiteral("gpick"), {}));
    print("", own, "ms", "kcolorchooser to window", startTime(desktop, QStringLiteral("kcolorchooser"), {}));
    printRow("start to tray icon, processor time", processor, "ms");
}

void measurePicking(PrivateDesktop::Compositor compositor)
{
    PrivateDesktop desktop({.size = {1920, 1080}, .compositor = compositor});
    DesktopConnection other(desktop.display());
    const auto picture = desktop.showPicture();
    const auto windows = openWindows(other, desktop.screen(), 20);
    TintwickProcess program(desktop);
    require(program.waitForTrayIcon(), "no tray icon");
    const QImage screen = desktop.settledScreenshot();

    const double pick = pickTime(desktop, program);
    print("\"Pick Color\" to the loupe's first frame (aim 16)", pick, "ms", "gpick -p to its window",
          startTime(desktop, QStringLiteral("gpick"), {QStringLiteral("-p")}));
    print("shortcut's release to the loupe's first frame (aim 16)", shortcutTime(desktop, program), "ms",
          "one frame", 1000.0 / 60);

    const double floor = floorOfGrab(desktop);
    require(program.startPicking(), "no loupe");
    print("one move, processor time, radius 7 (aim 0.5)", processorTimePerMove(desktop, program), "ms",
          "GetImage of 31 x 31", floor);
    const QPoint last(777, 555);
    print("1000 moves/s for 10 s, then to the last place (aim 16)",
          backlogTime(desktop, program, last, screen.pixel(last)), "ms", "one frame", 1000.0 / 60);
    desktop.scroll(-40);
    print("one move, processor time, radius 15 (aim 0.8)", processorTimePerMove(desktop, program), "ms",
          "GetImage of 31 x 31", floor);
}

void measurePanel(PrivateDesktop::Compositor compositor)
{
    PrivateDesktop desktop({.size = {1920, 1080}, .compositor = compositor});
    TintwickProcess program(desktop);
    require(program.waitForTrayIcon(), "no tray icon");
    const qint64 process = program.process().processId();
    waitForRest(process);
    const QRect icon = program.trayIcon();
    desktop.movePointer(icon.center());
    // The pick button, in the upper part of the panel.
    const QPoint inside(icon.center().x() - 100, icon.bottom() + 90);
    const QRgb without = desktop.pixel(inside);
    std::vector<double> times;
    for (int i = 0; i < 5; ++i) {
        const auto start = Clock::now();
        desktop.click();
        require(waitUntil([&] { return desktop.pixel(inside) != without; }), "no panel");
        times.push_back(millisecondsSince(start));
        desktop.click();
        require(waitUntil([&] { return desktop.pixel(inside) == without; }), "the panel stays");
    }
    print("click on the icon to the panel's first frame (aim 16)", median(times), "ms", "one frame",
          1000.0 / 60);

    desktop.click();
    require(program.waitForPanel(), "no panel");
    waitForRest(process);
    printWakeUps("wake-ups with the panel open (aim 0)", process, panelWatched);
}

void writePayload(const PrivateDesktop& desktop, const Payload& payload)
{
    const QString folder = desktop.dataHome() + QStringLiteral("/Tintwick");
    QFile file(folder + QStringLiteral("/data.json"));
    require(QDir().mkpath(folder) && file.open(QIODevice::WriteOnly) &&
                file.write(encodePayload(payload).value()) > 0,
            "the data cannot be written");
}

bool canTypeInto(PrivateDesktop& desktop, const QByteArray& title)
{
    xcb_connection_t* connection = desktop.connection().get();
    const ServerReply<xcb_get_input_focus_reply_t> reply(
        xcb_get_input_focus_reply(connection, xcb_get_input_focus(connection), nullptr));
    return reply && desktop.connection().property(reply->focus, "_NET_WM_NAME") == title;
}

/// Opens each of the panel's screens once. The memory that a screen allocates is still there for the next.
void measureScreens()
{
    // In pixels from the top left corner of the panel.
    constexpr QPoint pickButton(190, 72);
    constexpr QPoint back(23, 25);
    constexpr QPoint gear(350, 25);
    constexpr QPoint done(335, 25);
    constexpr QPoint seeAll(340, 147);
    constexpr QPoint firstCard(120, 355);
    constexpr QPoint exportMenu(335, 77);

    PrivateDesktop desktop({.size = {1920, 1080}});
    writePayload(desktop, fullPayloadWithFullCollection());
    TintwickProcess program(desktop);
    require(program.waitForTrayIcon(), "no tray icon");
    const qint64 process = program.process().processId();
    waitForRest(process);
    desktop.movePointer(program.trayIcon().center());
    desktop.click();
    require(program.waitForPanel(), "no panel");
    const QPoint panel = program.panel().topLeft();
    waitForRest(process);
    const QRgb blue = desktop.pixel(panel + pickButton);

    const auto print = [&](const char* what) {
        waitForRest(process);
        const Memory memory = memoryOf(process);
        std::array<char, 32> share{};
        std::snprintf(share.data(), share.size(), "PSS %.1f MB", memory.proportional);
        printRow(what, memory.resident, "MB", share.data());
    };
    const auto goTo = [&](QPoint button, bool isDashboard) {
        desktop.movePointer(panel + button);
        desktop.click();
        require(waitUntil([&] { return (desktop.pixel(panel + pickButton) == blue) == isDashboard; }),
                "another screen does not come");
        waitForRest(process);
    };
    print("RSS with the panel open: dashboard (aim 50)");
    goTo(seeAll, false);
    print("RSS with the panel open: history of 100 (aim 50)");
    goTo(back, true);
    goTo(firstCard, false);
    print("RSS with the panel open: palette of 100 (aim 50)");
    goTo(back, true);
    goTo(gear, false);
    print("RSS with the panel open: settings (aim 50)");
    goTo(done, true);
    goTo(firstCard, false);
    desktop.movePointer(panel + exportMenu);
    desktop.click();
    require(waitUntil([&] { return !desktop.connection().inputIsFree(); }), "no export menu");
    waitForRest(process);
    desktop.typeKey(XK_Down);
    desktop.typeKey(XK_Return);
    const QByteArray dialog = "Save As";
    require(waitUntil([&] { return canTypeInto(desktop, dialog); }), "no save dialog");
    desktop.typeKey(XK_Escape);
    require(waitUntil([&] { return !canTypeInto(desktop, dialog); }), "the save dialog stays");
    print("RSS after the toolkit's save dialog (aim 50)");
}

void measureIdle(std::chrono::seconds idle)
{
    PrivateDesktop desktop({.size = {1920, 1080}});
    TintwickProcess program(desktop);
    require(program.waitForTrayIcon(), "no tray icon");
    const qint64 process = program.process().processId();
    waitForRest(process);
    const Memory own = memoryOf(process);
    printWakeUps("wake-ups when idle (aim 0)", process, idle);
    for (const char* peer : {"gpick", "kcolorchooser"}) {
        const Memory beside = memoryOfPeer(desktop, QString::fromLatin1(peer));
        print("resident memory when idle (aim 40)", own.resident, "MB", peer, beside.resident);
        print("proportional share of it (aim 25)", own.proportional, "MB", peer, beside.proportional);
    }
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

    std::printf("%s, %ld processors, %s, load %s\n",
                valueOf(QStringLiteral("/proc/cpuinfo"), "model name").constData(),
                ::sysconf(_SC_NPROCESSORS_ONLN), qUtf8Printable(QSysInfo::prettyProductName()),
                contents(QStringLiteral("/proc/loadavg")).split(' ').first().constData());
    try {
        measureStart();
        std::puts("without a compositor");
        measurePicking(PrivateDesktop::Compositor::None);
        std::puts("with a compositor");
        measurePicking(PrivateDesktop::Compositor::Plain);
        std::puts("the panel, without and with a compositor");
        measurePanel(PrivateDesktop::Compositor::None);
        measurePanel(PrivateDesktop::Compositor::Plain);
        measureScreens();
        measureIdle(std::chrono::seconds(parser.value(idleSeconds).toInt()));
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return EXIT_FAILURE;
    }
    return EXIT_SUCCESS;
}
