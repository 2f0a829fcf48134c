#include "DataWriter.h"

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

// The toolkit calls exit() when the display ends, and no destructor of ours runs.
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
    m_mustRead = reading.outcome == DataReading::Outcome::Failed ||
                 reading.outcome == DataReading::Outcome::Undecodable;
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
        [[maybe_unused]] static const int registered = std::atexit(finishWrites);
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

std::optional<Payload> DataWriter::takeStored()
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
    DataProblem problem;
    if (prepareFile(problem)) {
        if (const int error = m_file.save(payload); error != 0) {
            problem = {DataProblem::Kind::CannotWrite, error};
        }
    }
    const std::lock_guard lock(m_mutex);
    m_problem = problem;
}

bool DataWriter::prepareFile(DataProblem& problem)
{
    if (!m_mustRead) {
        return true;
    }
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
    m_mustRead = false;

    const std::lock_guard lock(m_mutex);
    m_hasMovedFileAside = reading.outcome == DataReading::Outcome::Undecodable;
    if (reading.outcome == DataReading::Outcome::Read) {
        m_stored = std::move(reading.payload);
        return false;
    }
    return true;
}

} // namespace tintwick
