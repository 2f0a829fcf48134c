#include "support/RunningProgram.h"

#include <QFile>
#include <QFileInfo>

#include <csignal>
#include <stdexcept>
#include <sys/prctl.h>

namespace tintwick {

namespace {

QByteArray contents(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

RunningProgram::RunningProgram(const QString& program, const QStringList& arguments,
                               const QProcessEnvironment& environment, const QString& folder)
{
    static int started = 0;
    const QString base = QStringLiteral("%1/%2-%3").arg(folder, QFileInfo(program).fileName()).arg(++started);
    m_outputFile = base + QStringLiteral(".stdout");
    m_errorFile = base + QStringLiteral(".stderr");
    m_process.setStandardInputFile(QProcess::nullDevice());
    m_process.setStandardOutputFile(m_outputFile);
    m_process.setStandardErrorFile(m_errorFile);
    m_process.setProcessEnvironment(environment);
    // The program also ends when the test crashes or times out.
    m_process.setChildProcessModifier([] { ::prctl(PR_SET_PDEATHSIG, SIGTERM); });
    m_process.start(program, arguments);
    if (!m_process.waitForStarted()) {
        throw std::runtime_error("cannot start " + program.toStdString());
    }
    m_processId = m_process.processId();
}

RunningProgram::~RunningProgram()
{
    constexpr int patienceMs = 2000;
    if (isRunning()) {
        m_process.terminate();
        m_process.waitForFinished(patienceMs);
    }
    kill();
}

bool RunningProgram::isRunning()
{
    if (m_process.state() != QProcess::NotRunning) {
        m_process.waitForFinished(0);
    }
    return m_process.state() != QProcess::NotRunning;
}

QByteArray RunningProgram::standardOutput() const
{
    return contents(m_outputFile);
}

QByteArray RunningProgram::standardError() const
{
    return contents(m_errorFile);
}

std::optional<int> RunningProgram::waitForEnd(std::chrono::milliseconds deadline)
{
    if (isRunning() && !m_process.waitForFinished(static_cast<int>(deadline.count()))) {
        return std::nullopt;
    }
    return m_process.exitStatus() == QProcess::CrashExit ? -m_process.exitCode() : m_process.exitCode();
}

void RunningProgram::kill()
{
    if (isRunning()) {
        m_process.kill();
        m_process.waitForFinished();
    }
}

} // namespace tintwick
