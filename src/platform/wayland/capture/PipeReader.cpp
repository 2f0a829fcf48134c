#include "PipeReader.h"

#include <QSocketNotifier>

#include <array>
#include <cerrno>
#include <utility>

#include <fcntl.h>
#include <unistd.h>

namespace tintwick {

namespace {

void closeFile(int& file)
{
    if (file >= 0) {
        ::close(std::exchange(file, -1));
    }
}

} // namespace

PipeReader::PipeReader(QObject* parent)
    : QObject(parent)
{
    std::array<int, 2> ends{};
    if (::pipe2(ends.data(), O_CLOEXEC) != 0) {
        return;
    }
    m_readEnd = ends[0];
    m_writeEnd = ends[1];
    // Only the own end, because the other program may not expect that a write fails.
    ::fcntl(m_readEnd, F_SETFL, O_NONBLOCK);
    // The largest that is allowed to everyone; saves most of the switches between the two programs.
    constexpr int capacity = 1 << 20;
    ::fcntl(m_readEnd, F_SETPIPE_SZ, capacity);
}

PipeReader::~PipeReader()
{
    // The notifier must not watch a closed file.
    delete m_readable;
    closeFile(m_readEnd);
    closeFile(m_writeEnd);
}

int PipeReader::takeWriteEnd()
{
    return std::exchange(m_writeEnd, -1);
}

void PipeReader::read(std::span<std::byte> memory)
{
    m_rest = memory;
    m_readable = new QSocketNotifier(m_readEnd, QSocketNotifier::Read, this);
    connect(m_readable, &QSocketNotifier::activated, this, &PipeReader::readMore);
}

void PipeReader::readMore()
{
    while (!m_rest.empty()) {
        const ssize_t count = ::read(m_readEnd, m_rest.data(), m_rest.size());
        if (count < 0 && (errno == EAGAIN || errno == EINTR)) {
            return;
        }
        if (count <= 0) {
            end(false);
            return;
        }
        m_rest = m_rest.subspan(static_cast<std::size_t>(count));
    }
    end(true);
}

void PipeReader::end(bool isComplete)
{
    m_readable->setEnabled(false);
    Q_EMIT ended(isComplete);
}

} // namespace tintwick
