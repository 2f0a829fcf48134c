#pragma once

#include "DataFile.h"
#include "DataProblem.h"
#include "Payload.h"

#include <QObject>

#include <condition_variable>
#include <mutex>
#include <optional>
#include <thread>

namespace tintwick {

/// Saves the user's data in a thread of its own, so that a slow disk delays nobody. The thread starts with the first
/// write and sleeps between writes. The member functions are for the owner's thread, which is the main thread. An exit()
/// or quick_exit() of the process waits for the writes.
///
/// A data file that was not read, or that another program has written since, is not replaced: it is read again first. When
/// its content is new, nothing is saved; the owner takes the stored data, merges its own and writes both. A file that cannot
/// be decoded is moved aside.
class DataWriter final : public QObject
{
    Q_OBJECT

public:
    struct StoredChange
    {
        /// The last data that this object has read or saved; empty when there is none.
        Payload before;
        Payload now;
    };

    explicit DataWriter(QObject* parent = nullptr);
    /// Finishes the writes.
    ~DataWriter() override;

    /// Reads the data file in this thread. Call before the first write.
    [[nodiscard]] DataReading read();

    /// Replaces a payload that waits, and returns at once. attempted() follows.
    void write(const Payload& payload);
    /// Returns when no payload waits and none is being written.
    void waitUntilIdle();

    /// Of the last attempt.
    [[nodiscard]] DataProblem problem() const;
    /// True once an undecodable file was moved aside.
    [[nodiscard]] bool hasMovedFileAside() const;
    /// The stored data, once, when an attempt has read it instead of saving.
    [[nodiscard]] std::optional<StoredChange> takeStored();

Q_SIGNALS:
    /// From the writer's thread, after each attempt to save.
    void attempted();

private:
    void run();
    void attempt(const Payload& payload);
    [[nodiscard]] DataProblem trySave(const Payload& payload);
    /// True when the file may be replaced.
    [[nodiscard]] bool readAgain(DataProblem& problem);

    DataFile m_file;
    // These two belong to the owner before the thread starts, then to the thread.
    /// The file that was read or written last; none when it must be read before a save.
    std::optional<FileIdentity> m_known;
    /// Its content.
    Payload m_common;

    mutable std::mutex m_mutex;
    std::condition_variable m_changed;
    // Guarded by the mutex.
    std::optional<Payload> m_waiting;
    std::optional<StoredChange> m_stored;
    DataProblem m_problem;
    bool m_hasMovedFileAside = false;
    bool m_isWriting = false;
    bool m_isEnding = false;

    std::thread m_thread;
};

} // namespace tintwick
