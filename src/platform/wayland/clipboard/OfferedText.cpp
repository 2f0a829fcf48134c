#include "OfferedText.h"

#include <QSocketNotifier>

#include <cerrno>
#include <memory>

#include <fcntl.h>
#include <unistd.h>

namespace tintwick {

namespace {

/// Writes one text to one pipe, then deletes itself.
class TextWriter final : public QSocketNotifier
{
public:
    TextWriter(const QByteArray& text, int pipe)
        : QSocketNotifier(pipe, QSocketNotifier::Write)
        , m_pipe(pipe)
        , m_rest(text)
    {
        connect(this, &QSocketNotifier::activated, this, &TextWriter::write);
    }
    ~TextWriter() override { ::close(m_pipe); }
    TextWriter(const TextWriter&) = delete;
    TextWriter& operator=(const TextWriter&) = delete;

    void write()
    {
        const ssize_t count = ::write(m_pipe, m_rest.constData(), static_cast<std::size_t>(m_rest.size()));
        if (count > 0) {
            m_rest.remove(0, count);
        }
        if (m_rest.isEmpty() || (count < 0 && errno != EAGAIN && errno != EINTR)) {
            setEnabled(false);
            deleteLater();
        }
    }

private:
    int m_pipe;
    QByteArray m_rest;
};

} // namespace

void sendText(const QByteArray& text, int pipe)
{
    ::fcntl(pipe, F_SETFL, ::fcntl(pipe, F_GETFL) | O_NONBLOCK);
    auto* const writer = new TextWriter(text, pipe);
    writer->write();
}

} // namespace tintwick
