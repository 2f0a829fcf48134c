#include "ClipboardProcess.h"

#include <QFile>

#include <array>
#include <string>
#include <string_view>

#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <unistd.h>

namespace tintwick {

namespace {

constexpr std::string_view option = "--serve-clipboard";
constexpr int longestWait = 1000; // milliseconds
constexpr const char* nothing = "/dev/null";

/// A file in memory with this content, read from its start; not open when there is no memory. Unlike a pipe it takes a
/// text of any length at once.
void openWithContent(QFile& file, const QByteArray& content)
{
    const int descriptor = ::memfd_create("clipboard", MFD_CLOEXEC);
    if (descriptor < 0 ||
        !file.open(descriptor, QIODevice::ReadWrite | QIODevice::Unbuffered, QFileDevice::AutoCloseHandle)) {
        return;
    }
    if (file.write(content) != content.size() || !file.seek(0)) {
        file.close();
    }
}

/// Starts this program in a session of its own and in the root folder, without any of our open files.
bool spawnDetached(const QByteArray& owner, int input, int output)
{
    posix_spawn_file_actions_t files;
    posix_spawn_file_actions_init(&files);
    posix_spawn_file_actions_adddup2(&files, input, STDIN_FILENO);
    posix_spawn_file_actions_adddup2(&files, output, STDOUT_FILENO);
    posix_spawn_file_actions_addopen(&files, STDERR_FILENO, nothing, O_WRONLY, 0);
    posix_spawn_file_actions_addclosefrom_np(&files, STDERR_FILENO + 1);
    posix_spawn_file_actions_addchdir_np(&files, "/");
    posix_spawnattr_t attributes;
    posix_spawnattr_init(&attributes);
    posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSID);

    std::string name = "tintwick";
    std::string first(option);
    std::string second = owner.toStdString();
    std::array<char*, 4> arguments{name.data(), first.data(), second.data(), nullptr};
    pid_t process = 0;
    // The link leads to the file of this process, also when a package update has replaced it.
    const int error =
        ::posix_spawn(&process, "/proc/self/exe", &files, &attributes, arguments.data(), environ);
    posix_spawnattr_destroy(&attributes);
    posix_spawn_file_actions_destroy(&files);
    return error == 0;
}

/// Returns when a byte can be read, the other end is closed, or the time is over.
void waitForReport(int descriptor)
{
    pollfd end{.fd = descriptor, .events = POLLIN, .revents = 0};
    static_cast<void>(::poll(&end, 1, longestWait));
}

} // namespace

void startClipboardProcess(const ClipboardTask& task)
{
    QFile input;
    openWithContent(input, task.text);
    std::array<int, 2> report{};
    if (!input.isOpen() || ::pipe2(report.data(), O_CLOEXEC) != 0) {
        return;
    }
    const bool isStarted = spawnDetached(task.owner, input.handle(), report[1]);
    ::close(report[1]);
    if (isStarted) {
        waitForReport(report[0]);
    }
    ::close(report[0]);
}

std::optional<ClipboardTask> readClipboardTask(int argc, char** argv)
{
    constexpr int argumentCount = 3;
    if (argc != argumentCount || argv[1] != option) {
        return std::nullopt;
    }
    // The name of a process is that of the link by which it was started.
    ::prctl(PR_SET_NAME, "tintwick");
    QFile input;
    static_cast<void>(input.open(STDIN_FILENO, QIODevice::ReadOnly));
    return ClipboardTask{.text = input.readAll(), .owner = argv[2]};
}

void reportClipboardTaken()
{
    constexpr char report = '\n';
    static_cast<void>(::write(STDOUT_FILENO, &report, 1));
    // Both files belong to the program that waits.
    const int null = ::open(nothing, O_RDWR | O_CLOEXEC);
    ::dup2(null, STDIN_FILENO);
    ::dup2(null, STDOUT_FILENO);
    ::close(null);
}

} // namespace tintwick
