#include "QuitSignals.h"

#include <QSocketNotifier>

#include <array>
#include <cerrno>
#include <csignal>

#include <fcntl.h>
#include <unistd.h>

namespace tintwick {

namespace {

constexpr std::array signalNumbers{SIGTERM, SIGINT, SIGHUP};

// The handler may only write to a descriptor; the event loop reads the other end.
std::array<int, 2> pipeEnds{-1, -1};

void handleSignal(int)
{
    const int errorBefore = errno;
    const char byte = 0;
    // A full pipe holds enough reports.
    [[maybe_unused]] const ssize_t count = ::write(pipeEnds[1], &byte, 1);
    errno = errorBefore;
}

} // namespace

QuitSignals::QuitSignals(QObject* parent)
    : QObject(parent)
{
    if (::pipe2(pipeEnds.data(), O_CLOEXEC | O_NONBLOCK) != 0) {
        return;
    }
    auto* notifier = new QSocketNotifier(pipeEnds[0], QSocketNotifier::Read, this);
    connect(notifier, &QSocketNotifier::activated, this, &QuitSignals::takeSignals);

    struct sigaction action = {};
    action.sa_handler = handleSignal;
    action.sa_flags = SA_RESTART;
    for (const int number : signalNumbers) {
        struct sigaction before = {};
        ::sigaction(number, nullptr, &before);
        // A process that was started to survive its terminal, by nohup, still does.
        if (before.sa_handler != SIG_IGN) {
            ::sigaction(number, &action, nullptr);
        }
    }
}

QuitSignals::~QuitSignals() = default;

void QuitSignals::takeSignals()
{
    std::array<char, 16> bytes{};
    while (::read(pipeEnds[0], bytes.data(), bytes.size()) > 0) {
    }
    Q_EMIT received();
}

} // namespace tintwick
