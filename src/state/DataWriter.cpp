#include "DataWriter.h"

#include "PayloadCoding.h"

#include <cerrno>
#include <cstdlib>
#include <utility>
#include <vector>

namespace tintwick {

namespace {

/// The writers whose threads have started.
std::vector<DataWriter*>& startedWriters()
{
    static std::vector<DataWriter*> writers;
    return writers;
}

// When the display ends, the toolkit calls exit() on X11 and we call quick_exit() on Wayland, and no destructor of ours
// runs.
void finishWrites()
{
    for (DataWriter* writer : startedWriters()) {
        writer->waitUntilIdle();
    }
}

} // namespace

DataWriter::DataWriter(QObject* parent)
    : QObject(parent)
{
}

DataWriter::~DataWriter()
{
    {
        const std::lock_guard lock(m_mutex);
        m_isEnding = true;
    }
    m_changed.notify_all();
    if (m_thread.joinable()) {
        m_thread.join();
        std::erase(startedWriters(), this);
    }
}

DataReading DataWriter::read()
{
    DataReading reading = m_file.read();
    if (reading.outcome == DataReading::Outcome::Read || reading.outcome == DataReading::Outcome::Missing) {
        m_known = reading.identity;
        m_common = reading.payload;
    }
    return reading;
}

void DataWriter::write(const Payload& payload)
{
    {
        const std::lock_guard lock(m_mutex);
        m_waiting = payload;
    }
    if (!m_thread.joinable()) {
        startedWriters().push_back(this);
        m_thread = std::thread([this] { run(); });
        [[maybe_unused]] static const int registered =
            std::atexit(finishWrites) + std::at_quick_exit(finishWrites);
    }
    m_changed.notify_all();
}

void DataWriter::waitUntilIdle()
{
    std::unique_lock lock(m_mutex);
    m_changed.wait(lock, [this] { return !m_waiting && !m_isWriting; });
}

DataProblem DataWriter::problem() const
{
    const std::lock_guard lock(m_mutex);
    return m_problem;
}

bool DataWriter::hasMovedFileAside() const
{
    const std::lock_guard lock(m_mutex);
    return m_hasMovedFileAside;
}

std::optional<DataWriter::StoredChange> DataWriter::takeStored()
{
    const std::lock_guard lock(m_mutex);
    if (m_stored) {
        // It lacks the stored data; the owner writes both.
        m_waiting.reset();
    }
    return std::exchange(m_stored, std::nullopt);
}

void DataWriter::run()
{
    std::unique_lock lock(m_mutex);
    while (true) {
        m_changed.wait(lock, [this] { return m_waiting || m_isEnding; });
        if (!m_waiting) {
            return;
        }
        const Payload payload = *std::exchange(m_waiting, std::nullopt);
        // The owner has not added the stored data yet.
        if (!m_stored) {
            m_isWriting = true;
            lock.unlock();
            attempt(payload);
            Q_EMIT attempted();
            lock.lock();
            m_isWriting = false;
        }
        m_changed.notify_all();
    }
}

void DataWriter::attempt(const Payload& payload)
{
    const DataProblem problem = trySave(payload);
    const std::lock_guard lock(m_mutex);
    m_problem = problem;
}

DataProblem DataWriter::trySave(const Payload& payload)
{
    int error = m_known ? m_file.save(payload, m_known) : ESTALE;
    if (error == ESTALE) {
        DataProblem problem;
        if (!readAgain(problem)) {
            return problem;
        }
        // Replaces any file now: on some file systems the identity changes by itself.
        m_known.reset();
        error = m_file.save(payload, m_known);
    }
    if (error != 0) {
        return {DataProblem::Kind::CannotWrite, error};
    }
    m_common = payload;
    return {};
}

bool DataWriter::readAgain(DataProblem& problem)
{
    DataReading reading = m_file.read();
    switch (reading.outcome) {
    case DataReading::Outcome::Failed:
        problem = {DataProblem::Kind::CannotRead, reading.error};
        return false;
    case DataReading::Outcome::Undecodable:
        if (const int error = m_file.moveAside(); error != 0) {
            problem = {DataProblem::Kind::CannotWrite, error};
            return false;
        }
        break;
    case DataReading::Outcome::Read:
    case DataReading::Outcome::Missing:
        break;
    }

    const std::lock_guard lock(m_mutex);
    m_hasMovedFileAside = m_hasMovedFileAside || reading.outcome == DataReading::Outcome::Undecodable;
    if (reading.outcome != DataReading::Outcome::Read) {
        return true;
    }
    m_known = reading.identity;
    Payload before = asStored(std::exchange(m_common, reading.payload));
    if (reading.payload == before) {
        return true;
    }
    m_stored = {std::move(before), std::move(reading.payload)};
    return false;
}

} // namespace tintwick
