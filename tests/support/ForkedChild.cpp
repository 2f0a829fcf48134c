#include "support/ForkedChild.h"

#include <QtGlobal>

#include <array>
#include <csignal>

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace tintwick::test {

namespace {

void handOver(int descriptor, const QByteArray& report)
{
    qsizetype written = 0;
    while (written < report.size()) {
        const ssize_t count =
            ::write(descriptor, report.constData() + written, static_cast<size_t>(report.size() - written));
        if (count <= 0) {
            return;
        }
        written += count;
    }
}

} // namespace

ChildEnd runInChild(const std::function<QByteArray()>& work)
{
    std::array<int, 2> pipe{};
    if (::pipe(pipe.data()) != 0) {
        qFatal("No pipe to a child");
    }
    const pid_t child = ::fork();
    if (child == 0) {
        // The test's own signal handlers would report the end of the child as the end of the test.
        qInstallMessageHandler(nullptr);
        for (const int signal : {SIGABRT, SIGXFSZ, SIGSEGV, SIGBUS}) {
            std::signal(signal, SIG_DFL);
        }
        const rlimit noCore{0, 0};
        ::setrlimit(RLIMIT_CORE, &noCore);
        ::close(pipe[0]);
        handOver(pipe[1], work());
        ::_exit(0);
    }

    ::close(pipe[1]);
    ChildEnd end;
    std::array<char, 4096> buffer{};
    ssize_t count = 0;
    while ((count = ::read(pipe[0], buffer.data(), buffer.size())) > 0) {
        end.report.append(buffer.data(), count);
    }
    ::close(pipe[0]);
    int status = 0;
    ::waitpid(child, &status, 0);
    end.signal = WIFSIGNALED(status) ? WTERMSIG(status) : 0;
    return end;
}

} // namespace tintwick::test
