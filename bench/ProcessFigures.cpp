#include "ProcessFigures.h"

#include "Measuring.h"
#include "Table.h"

#include "support/WaitUntil.h"

#include <QDir>
#include <QFile>
#include <QHash>

#include <functional>
#include <numeric>
#include <string>

namespace tintwick {

namespace {

double numberOf(const QString& path, const QByteArray& key)
{
    return valueOf(path, key).split(' ').first().toDouble();
}

/// Reads a number with `figure` from the /proc folder of each thread of the process.
using ThreadFigures = QHash<QString, double>;

ThreadFigures ofThreads(qint64 process, const std::function<double(const QString& folder)>& figure)
{
    const QDir tasks(QStringLiteral("/proc/%1/task").arg(process));
    ThreadFigures figures;
    for (const QString& task : tasks.entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
        figures.insert(task, figure(tasks.filePath(task)));
    }
    return figures;
}

/// The number of wake-ups of each thread. Each wake-up ends with one voluntary context switch.
ThreadFigures wakeUps(qint64 process)
{
    return ofThreads(process, [](const QString& folder) {
        return numberOf(folder + QStringLiteral("/status"), "voluntary_ctxt_switches");
    });
}

double wakeUpsBetween(const ThreadFigures& before, const ThreadFigures& after)
{
    double sum = 0;
    for (auto thread = after.begin(); thread != after.end(); ++thread) {
        sum += thread.value() - before.value(thread.key());
    }
    // The end of a thread is one wake-up.
    for (auto thread = before.begin(); thread != before.end(); ++thread) {
        sum += after.contains(thread.key()) ? 0 : 1;
    }
    return sum;
}

} // namespace

QByteArray contents(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QByteArray valueOf(const QString& path, const QByteArray& key)
{
    for (const QByteArray& line : contents(path).split('\n')) {
        const qsizetype colon = line.indexOf(':');
        if (colon > 0 && line.first(colon).trimmed() == key) {
            return line.mid(colon + 1).trimmed();
        }
    }
    return {};
}

double processorTime(qint64 process)
{
    const ThreadFigures times = ofThreads(process, [](const QString& folder) {
        constexpr double nanosecondsPerMillisecond = 1e6;
        return contents(folder + QStringLiteral("/schedstat")).split(' ').value(0).toDouble() /
               nanosecondsPerMillisecond;
    });
    return std::accumulate(times.begin(), times.end(), 0.0);
}

void waitForRest(qint64 process)
{
    constexpr int enough = 2000;
    ThreadFigures last = wakeUps(process);
    int alike = 0;
    require(waitUntil(
                [&] {
                    const ThreadFigures now = wakeUps(process);
                    alike = now == last ? alike + 1 : 0;
                    last = now;
                    return alike == enough;
                },
                std::chrono::seconds(60)),
            "the program does not come to rest");
}

void printWakeUps(const char* what, qint64 process, std::chrono::seconds watched)
{
    const ThreadFigures before = wakeUps(process);
    static_cast<void>(waitUntil([] { return false; }, watched));
    printRow(what, wakeUpsBetween(before, wakeUps(process)), "",
             "in " + std::to_string(watched.count()) + " s");
}

Memory memoryOf(qint64 process)
{
    constexpr double kilobytesPerMegabyte = 1024;
    const QString folder = QStringLiteral("/proc/%1/").arg(process);
    return {numberOf(folder + QStringLiteral("status"), "VmRSS") / kilobytesPerMegabyte,
            numberOf(folder + QStringLiteral("smaps_rollup"), "Pss") / kilobytesPerMegabyte};
}

} // namespace tintwick
