// Measurements of the command line, each beside what a user would run instead.

#include "LoupeTiming.h"
#include "Measuring.h"
#include "PeerTiming.h"
#include "Table.h"

#include <QCoreApplication>
#include <QProcess>

#include <cstdio>
#include <cstdlib>
#include <exception>
#include <string>
#include <vector>

namespace {

using namespace tintwick;

constexpr int runs = 25;

std::string beside(const char* what, double figure, double other)
{
    return std::string(what) + " " + std::to_string(other) + " ms, ratio " + std::to_string(figure / other);
}

/// The median time in ms from the start of a program to its end.
double runTime(const QString& program, const QStringList& arguments)
{
    std::vector<double> times;
    for (int i = 0; i < runs; ++i) {
        QProcess process;
        const auto start = Clock::now();
        process.start(program, arguments);
        require(process.waitForFinished() && process.exitCode() == 0, "a program fails");
        times.push_back(millisecondsSince(start));
    }
    return median(times);
}

void measureConversion()
{
    const double own =
        runTime(QStringLiteral(TINTWICK_PROGRAM), {QStringLiteral("convert"), QStringLiteral("red")});
    const double python = runTime(QStringLiteral("python3"), {QStringLiteral("-c"), QStringLiteral("pass")});
    printRow("tintwick convert (aim 15)", own, "ms", beside("python3 -c pass", own, python));
}

void measurePick()
{
    PrivateDesktop desktop({.size = {1920, 1080}, .sessionBus = true});
    const auto picture = desktop.showPicture();
    TintwickProcess program(desktop);
    require(program.waitForTrayIcon(), "no tray icon");
    std::vector<double> times;
    for (int i = 0; i < runs; ++i) {
        std::unique_ptr<RunningProgram> caller;
        times.push_back(timeToLoupe(desktop, program, [&] {
            caller = desktop.start(QStringLiteral(TINTWICK_PROGRAM), {QStringLiteral("pick")});
        }));
        require(caller->waitForEnd().has_value(), "the pick does not end");
    }
    const double own = median(times);
    printRow("tintwick pick, by the running program, to the first frame", own, "ms",
             beside("gpick -p to its window", own,
                    startTime(desktop, QStringLiteral("gpick"), {QStringLiteral("-p")})));
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    try {
        measureConversion();
        measurePick();
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return EXIT_FAILURE;
    }
    return EXIT_SUCCESS;
}
