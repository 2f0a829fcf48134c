#pragma once

#include <QByteArray>
#include <QTemporaryFile>

#include <cstdio>

#include <unistd.h>

namespace tintwick::test {

/// While it lives, what the process writes to standard output goes into a file instead.
class CapturedOutput final
{
public:
    CapturedOutput()
    {
        std::fflush(stdout);
        m_original = dup(STDOUT_FILENO);
        if (m_file.open()) {
            dup2(m_file.handle(), STDOUT_FILENO);
        }
    }
    ~CapturedOutput()
    {
        std::fflush(stdout);
        dup2(m_original, STDOUT_FILENO);
        close(m_original);
    }
    CapturedOutput(const CapturedOutput&) = delete;
    CapturedOutput& operator=(const CapturedOutput&) = delete;

    /// Only what has left the process: output that was not flushed is not there.
    [[nodiscard]] QByteArray text()
    {
        QFile file(m_file.fileName());
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

private:
    QTemporaryFile m_file;
    int m_original = -1;
};

} // namespace tintwick::test
