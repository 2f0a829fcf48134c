#pragma once

#include <QByteArray>
#include <QProcess>
#include <QProcessEnvironment>
#include <QString>
#include <QStringList>

#include <chrono>
#include <optional>

namespace tintwick {

/// A child process. It ends with this object at the latest, and also when the test process crashes.
class RunningProgram final
{
public:
    /// Writes the output to files in `folder`. Throws std::runtime_error when the program cannot be started.
    RunningProgram(const QString& program, const QStringList& arguments,
                   const QProcessEnvironment& environment, const QString& folder);
    /// Sends SIGTERM, so that an X server can remove its socket and lock file; kills after two seconds.
    ~RunningProgram();
    RunningProgram(const RunningProgram&) = delete;
    RunningProgram& operator=(const RunningProgram&) = delete;

    [[nodiscard]] bool isRunning();
    [[nodiscard]] qint64 processId() const { return m_processId; }
    [[nodiscard]] QByteArray standardOutput() const;
    [[nodiscard]] QByteArray standardError() const;

    /// The exit status, or the negative signal number when a signal ended the program. None when it still runs at
    /// the deadline.
    [[nodiscard]] std::optional<int> waitForEnd(std::chrono::milliseconds deadline = std::chrono::seconds(5));
    /// Sends SIGKILL and waits for the end of the process.
    void kill();

private:
    QProcess m_process;
    QString m_outputFile;
    QString m_errorFile;
    qint64 m_processId = 0;
};

} // namespace tintwick
