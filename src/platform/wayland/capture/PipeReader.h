#pragma once

#include <QObject>

#include <cstddef>
#include <span>

class QSocketNotifier;

namespace tintwick {

/// A pipe of which another program writes a known number of bytes. They are read from the event loop into memory of the
/// caller.
class PipeReader final : public QObject
{
    Q_OBJECT

public:
    explicit PipeReader(QObject* parent = nullptr);
    ~PipeReader() override;
    PipeReader(const PipeReader&) = delete;
    PipeReader& operator=(const PipeReader&) = delete;

    /// The end for the other program, which the caller must close; -1 when no pipe could be made. Call once. While a copy
    /// is open here, the reader does not notice that the other program has closed its own.
    [[nodiscard]] int takeWriteEnd();

    /// Fills the memory, which must stay until the reader has ended. Call once.
    void read(std::span<std::byte> memory);

Q_SIGNALS:
    /// Emitted once: whether the memory is filled. False when the other program closed its end before that.
    void ended(bool isComplete);

private:
    void readMore();
    void end(bool isComplete);

    int m_readEnd = -1;
    int m_writeEnd = -1;
    std::span<std::byte> m_rest;
    QSocketNotifier* m_readable = nullptr;
};

} // namespace tintwick
