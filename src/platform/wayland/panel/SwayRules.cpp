#include "SwayRules.h"

#include "FileDescriptor.h"

#include <QByteArray>
#include <QCoreApplication>
#include <QGuiApplication>
#include <QRegularExpression>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <iterator>

#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>

namespace tintwick {

namespace {

constexpr int patience = 200; // milliseconds

/// Sends one command over the socket that SWAYSOCK names, and waits until it is carried out.
void runCommand(const QByteArray& text)
{
    const QByteArray path = qgetenv("SWAYSOCK");
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    const FileDescriptor socket(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
    if (path.isEmpty() || static_cast<std::size_t>(path.size()) >= sizeof address.sun_path ||
        !socket.isOpen()) {
        return;
    }
    std::copy(path.cbegin(), path.cend(), std::begin(address.sun_path));
    if (::connect(socket.get(), reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0) {
        return;
    }
    // The magic word, the length and the kind of message (0: run commands) in the byte order of the machine.
    const std::uint32_t header[] = {static_cast<std::uint32_t>(text.size()), 0};
    const QByteArray message =
        "i3-ipc" + QByteArray(reinterpret_cast<const char*>(header), sizeof header) + text;
    ::send(socket.get(), message.constData(), static_cast<std::size_t>(message.size()), MSG_NOSIGNAL);
    pollfd answer{socket.get(), POLLIN, 0};
    ::poll(&answer, 1, patience);
}

} // namespace

// The window is with its shadow inside the area: sway gives a floating window the clicks on all of its rectangle, also
// where the window lets them through, and the tray must remain free.
void SwayRules::placeInCorner(const QString& title, QSize window, const ScreenCorner& corner)
{
    if (m_corner != corner) {
        m_corner = corner;
        ++m_change;
    }
    // The last rule of several counts, but one that is there already does not become the last. The comment makes the
    // rule a new one after each change.
    const QString rule =
        QStringLiteral(R"(for_window [app_id="^%1$" title="^%2$"] )"
                       R"("move position %3 ppt %4 ppt, move left %5 px, move up %6 px, nop %7-%8")")
            .arg(QRegularExpression::escape(QGuiApplication::desktopFileName()),
                 QRegularExpression::escape(title))
            .arg(corner.isLeft ? 0 : 100)
            .arg(corner.isBottom ? 100 : 0)
            .arg(corner.isLeft ? 0 : window.width())
            .arg(corner.isBottom ? window.height() : 0)
            .arg(QCoreApplication::applicationPid())
            .arg(m_change);
    runCommand(rule.toUtf8());
}

} // namespace tintwick
