#pragma once

#include <QByteArray>
#include <QString>

#include <chrono>

namespace tintwick {

/// The content of a file; empty when it cannot be read.
[[nodiscard]] QByteArray contents(const QString& path);

/// The text after `key:` in the file; empty when there is none.
[[nodiscard]] QByteArray valueOf(const QString& path, const QByteArray& key);

/// Processor time of all threads in ms, with the scheduler's precision; the ticks of `stat` are too coarse.
[[nodiscard]] double processorTime(qint64 process);

/// Returns when the program has finished its work at the start.
void waitForRest(qint64 process);

/// Measures an idle process.
void printWakeUps(const char* what, qint64 process, std::chrono::seconds watched);

struct Memory
{
    double resident = 0;
    double proportional = 0;
};

/// In MB.
[[nodiscard]] Memory memoryOf(qint64 process);

} // namespace tintwick
