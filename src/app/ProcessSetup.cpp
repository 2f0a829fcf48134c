#include "ProcessSetup.h"

#include "FileDescriptor.h"

#include <QByteArray>
#include <QByteArrayList>

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstddef>
#include <cstdlib>
#include <iterator>
#include <vector>

#include <fcntl.h>
#include <poll.h>
#include <pwd.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace tintwick {

namespace {

constexpr std::array folderVariables{"XDG_DATA_HOME", "XDG_CONFIG_HOME", "XDG_STATE_HOME", "XDG_CACHE_HOME",
                                     "XDG_RUNTIME_DIR"};
constexpr std::array folderListVariables{"XDG_DATA_DIRS", "XDG_CONFIG_DIRS"};

constexpr auto* busVariable = "DBUS_SESSION_BUS_ADDRESS";

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

/// The path of the session bus's socket, with a zero in front of an abstract one. Empty when the bus is reached in
/// another way, or there is none.
QByteArray busSocket()
{
    const QByteArray address = qgetenv(busVariable);
    if (address.isEmpty()) {
        return qgetenv("XDG_RUNTIME_DIR") + "/bus";
    }
    for (const QByteArray& part : address.split(';').first().split(',')) {
        if (part.startsWith("unix:path=")) {
            return QByteArray::fromPercentEncoding(part.mid(qstrlen("unix:path=")));
        }
        if (part.startsWith("unix:abstract=")) {
            return '\0' + QByteArray::fromPercentEncoding(part.mid(qstrlen("unix:abstract=")));
        }
    }
    return {};
}

/// Whether the session bus replies to the start of the login. True for a bus that is not there, which the toolkit
/// notices at once.
bool sessionBusAnswers()
{
    constexpr int patience = 800; // milliseconds
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    const QByteArray path = busSocket();
    const FileDescriptor socket(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
    if (path.isEmpty() || static_cast<std::size_t>(path.size()) >= sizeof address.sun_path ||
        !socket.isOpen()) {
        return true;
    }
    std::copy(path.cbegin(), path.cend(), std::begin(address.sun_path));
    const auto size =
        static_cast<socklen_t>(offsetof(sockaddr_un, sun_path) + static_cast<std::size_t>(path.size()));
    if (::connect(socket.get(), reinterpret_cast<const sockaddr*>(&address), size) != 0) {
        // A full queue of connections is that of a bus which accepts none.
        return errno != EAGAIN;
    }
    const QByteArray login = '\0' + ("AUTH EXTERNAL " + QByteArray::number(::getuid()).toHex() + "\r\n");
    ::send(socket.get(), login.constData(), static_cast<std::size_t>(login.size()), MSG_NOSIGNAL);
    pollfd answer{socket.get(), POLLIN, 0};
    return ::poll(&answer, 1, patience) > 0;
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

void ignoreSilentSessionBus()
{
    if (!sessionBusAnswers()) {
        qputenv(busVariable, "disabled:");
    }
}

void setUpProcess()
{
    openStandardDescriptors();
    std::signal(SIGPIPE, SIG_IGN);
    correctUserFolders();
}

} // namespace tintwick
