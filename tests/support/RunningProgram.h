#pragma once

#include <QByteArray>
#include <QProcess>
#include <QProcessEnvironment>
#include <QString>
#include <QStringList>

#include <chrono>
#include <optional>

namespace tintwick {

/// A program that runs as long as this object lives at most; it ends with the test even when the test
/// crashes.
class RunningProgram final
{
public:
    /// Output goes to files in `folder`. Throws std::runtime_error when the program cannot be started.
    RunningProgram(const QString& program, const QStringList& arguments,
                   const QProcessEnvironment& environment, const QString& folder);
    ~RunningProgram();
    RunningProgram(const RunningProgram&) = delete;
    RunningProgram& operator=(const RunningProgram&) = delete;

    [[nodiscard]] bool isRunning();
    [[nodiscard]] qint64 processId() const { return m_processId; }
    [[nodiscard]] QByteArray standardOutput() const;
    [[nodiscard]] QByteArray standardError() const;

    /// The status the program ended with, minus the signal's number when a signal ended it; none when it
    /// still runs at the deadline.
    [[nodiscard]] std::optional<int> waitForEnd(std::chrono::milliseconds deadline = std::chrono::seconds(5));
    /// SIGKILL, and waits until the process is gone.
    void kill();

private:
    QProcess m_process;
    QString m_outputFile;
    QString m_errorFile;
    qint64 m_processId = 0;
};

} // namespace tintwick
