#include "OfferedText.h"

#include <algorithm>
#include <cerrno>
#include <thread>

#include <fcntl.h>
#include <unistd.h>

namespace tintwick {

namespace {

/// Every pipe has this room (PIPE_BUF).
constexpr qsizetype pipeRoom = 4096;

void writeAll(const QByteArray& text, int pipe)
{
    ::fcntl(pipe, F_SETFL, ::fcntl(pipe, F_GETFL) & ~O_NONBLOCK);
    qsizetype done = 0;
    while (done < text.size()) {
        const ssize_t count =
            ::write(pipe, text.constData() + done, static_cast<std::size_t>(text.size() - done));
        if (count < 0 && errno != EINTR) {
            break;
        }
        done += std::max<ssize_t>(count, 0);
    }
    ::close(pipe);
}

} // namespace

void sendText(const QByteArray& text, int pipe)
{
    if (text.size() <= pipeRoom) {
        writeAll(text, pipe);
    } else {
        std::thread(writeAll, text, pipe).detach();
    }
}

} // namespace tintwick
