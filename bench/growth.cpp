// How the loupe's delays grow with the screen, the number of windows and the scale, and while another program draws
// without pause.

#include "LoupeTiming.h"
#include "Measuring.h"

#include "support/FloodingClient.h"
#include "support/WaitUntil.h"

#include <QCoreApplication>
#include <QProcessEnvironment>

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <exception>

namespace {

using namespace tintwick;
using Compositor = PrivateDesktop::Compositor;

struct Workload
{
    QSize screen;
    int windows = 0;
};
constexpr std::array<Workload, 4> workloads{
    {{{1920, 1080}, 20}, {{1920, 1080}, 200}, {{3840, 2160}, 20}, {{3840, 2160}, 200}}};
constexpr std::array<double, 2> scales{1, 2};

QProcessEnvironment scaled(double scale)
{
    QProcessEnvironment environment;
    environment.insert(QStringLiteral("QT_SCALE_FACTOR"), QString::number(scale));
    return environment;
}

const char* nameOf(Compositor compositor)
{
    return compositor == Compositor::None ? "without a compositor" : "with a compositor";
}

void printHead()
{
    std::printf("%-50s", "shortcut to the loupe's first frame, ms (aim 16)");
    for (const auto& [screen, windows] : workloads) {
        std::array<char, 24> column{};
        std::snprintf(column.data(), column.size(), "%dp, %d windows", screen.height(), windows);
        std::printf("%20s", column.data());
    }
    std::puts("");
}

/// One row for each scale, one column for each workload.
void measureFirstFrame(Compositor compositor)
{
    std::array<std::array<double, workloads.size()>, scales.size()> times{};
    for (std::size_t column = 0; column < workloads.size(); ++column) {
        const auto& [screen, windowCount] = workloads[column];
        PrivateDesktop desktop({.size = screen, .compositor = compositor});
        DesktopConnection other(desktop.display());
        const auto picture = desktop.showPicture();
        const auto windows = openWindows(other, desktop.screen(), windowCount);
        for (std::size_t row = 0; row < scales.size(); ++row) {
            TintwickProcess program(desktop, scaled(scales[row]));
            require(program.waitForTrayIcon(), "no tray icon");
            static_cast<void>(desktop.settledScreenshot());
            times[row][column] = shortcutTime(desktop, program, scales[row]);
        }
    }
    for (std::size_t row = 0; row < scales.size(); ++row) {
        std::printf("  %s, scale %-20g", nameOf(compositor), scales[row]);
        for (const double time : times[row]) {
            std::printf("%20.1f", time);
        }
        std::puts("");
    }
    std::fflush(stdout);
}

/// From a move of the pointer to the loupe on the screen at its new place, while another program draws below it.
void measureFlood(Compositor compositor)
{
    constexpr int moves = 40;
    PrivateDesktop desktop({.size = {1920, 1080}, .compositor = compositor});
    const auto picture = desktop.showPicture();
    TintwickProcess program(desktop);
    require(program.waitForTrayIcon(), "no tray icon");
    const FloodingClient flood(desktop.display(), {400, 300, 1100, 700}, 8);
    require(program.startPicking(), "no loupe");
    std::vector<double> times;
    for (int step = 0; step < moves; ++step) {
        const QPoint position(500 + step * 97 % 600, 400 + step * 61 % 300);
        const QPoint watched = onRing(loupePlace(position, desktop.screen()));
        const auto start = Clock::now();
        desktop.movePointer(position);
        if (!waitUntil([&] { return desktop.pixel(watched) == ringColor; }, std::chrono::seconds(20))) {
            std::printf("  %-48smove %d not on the screen after 20 s\n", nameOf(compositor), step + 1);
            return;
        }
        times.push_back(millisecondsSince(start));
    }
    std::printf("  %-48smedian %.1f, longest %.1f\n", nameOf(compositor), median(times),
                *std::max_element(times.begin(), times.end()));
    std::fflush(stdout);
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    try {
        printHead();
        measureFirstFrame(Compositor::None);
        measureFirstFrame(Compositor::Plain);
        std::puts("a move while a client draws without pause, ms (aim 33)");
        measureFlood(Compositor::None);
        measureFlood(Compositor::Plain);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return EXIT_FAILURE;
    }
    return EXIT_SUCCESS;
}
