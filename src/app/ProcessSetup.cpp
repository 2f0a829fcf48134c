#include "ProcessSetup.h"

#include <QByteArray>
#include <QByteArrayList>

#include <algorithm>
#include <array>
#include <csignal>
#include <cstdlib>
#include <vector>

#include <fcntl.h>
#include <pwd.h>
#include <unistd.h>

namespace tintwick {

namespace {

constexpr std::array folderVariables{"XDG_DATA_HOME", "XDG_CONFIG_HOME", "XDG_STATE_HOME", "XDG_CACHE_HOME",
                                     "XDG_RUNTIME_DIR"};
constexpr std::array folderListVariables{"XDG_DATA_DIRS", "XDG_CONFIG_DIRS"};

void openStandardDescriptors()
{
    int descriptor = 0;
    while (descriptor >= 0 && descriptor <= STDERR_FILENO) {
        descriptor = ::open("/dev/null", O_RDWR);
    }
    if (descriptor >= 0) {
        ::close(descriptor);
    }
}

bool isAbsolute(const QByteArray& path)
{
    return path.startsWith('/');
}

void setOrUnset(const char* name, const QByteArray& value)
{
    if (value.isEmpty()) {
        qunsetenv(name);
    } else {
        qputenv(name, value);
    }
}

/// The user's home folder in the password database; empty when it has none.
QByteArray homeOfUser()
{
    std::vector<char> buffer(static_cast<std::size_t>(std::max(16384L, ::sysconf(_SC_GETPW_R_SIZE_MAX))));
    passwd entry{};
    passwd* found = nullptr;
    ::getpwuid_r(::getuid(), &entry, buffer.data(), buffer.size(), &found);
    return found != nullptr ? QByteArray(found->pw_dir) : QByteArray();
}

} // namespace

void correctUserFolders()
{
    for (const char* name : folderVariables) {
        if (qEnvironmentVariableIsSet(name) && !isAbsolute(qgetenv(name))) {
            qunsetenv(name);
        }
    }
    for (const char* name : folderListVariables) {
        if (qEnvironmentVariableIsSet(name)) {
            QByteArrayList folders = qgetenv(name).split(':');
            folders.removeIf([](const QByteArray& folder) { return !isAbsolute(folder); });
            setOrUnset(name, folders.join(':'));
        }
    }
    if (!isAbsolute(qgetenv("HOME"))) {
        setOrUnset("HOME", homeOfUser());
    }
}

void setUpProcess()
{
    openStandardDescriptors();
    std::signal(SIGPIPE, SIG_IGN);
    correctUserFolders();
}

} // namespace tintwick
