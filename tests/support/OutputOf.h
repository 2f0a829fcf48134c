#pragma once

#include <QByteArray>
#include <QTemporaryFile>

#include <cstdio>
#include <functional>

#include <unistd.h>

namespace tintwick::test {

/// The text that the process writes to standard output and flushes during the action. Compare the result outside it,
/// because a failed comparison writes there too.
inline QByteArray outputOf(const std::function<void()>& action)
{
    QTemporaryFile file;
    if (!file.open()) {
        return "no file to write to";
    }
    std::fflush(stdout);
    const int original = dup(STDOUT_FILENO);
    dup2(file.handle(), STDOUT_FILENO);
    action();
    file.seek(0);
    const auto text = file.readAll();
    std::fflush(stdout);
    dup2(original, STDOUT_FILENO);
    close(original);
    return text;
}

} // namespace tintwick::test
