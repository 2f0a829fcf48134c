#include "DataFile.h"

#include "DurableWrite.h"
#include "FileDescriptor.h"
#include "PayloadCoding.h"
#include "PrivateFolder.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

#include <cerrno>
#include <csignal>
#include <cstdio>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace tintwick {

namespace {

using namespace Qt::StringLiterals;

constexpr qsizetype asideLimit = 3;

QString dataFolder()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) + u"/Tintwick"_s;
}

QString dataPath()
{
    return dataFolder() + u"/data.json"_s;
}

/// Reads at most `limit` bytes from the start of a file. Returns 0 or an errno value.
int readStart(const FileDescriptor& file, qsizetype limit, QByteArray& bytes)
{
    constexpr qsizetype step = qsizetype(256) * 1024;
    qsizetype size = 0;
    while (size < limit) {
        bytes.resize(qMin(size + step, limit));
        const ssize_t count =
            ::read(file.get(), bytes.data() + size, static_cast<std::size_t>(bytes.size() - size));
        if (count < 0 && errno == EINTR) {
            continue;
        }
        if (count < 0) {
            return errno;
        }
        if (count == 0) {
            break;
        }
        size += count;
    }
    bytes.truncate(size);
    return 0;
}

DataReading failed(int error)
{
    return {.outcome = DataReading::Outcome::Failed, .payload = {}, .error = error, .identity = {}};
}

QString asidePath(const QDir& folder, const QDateTime& time)
{
    return folder.filePath(u"data.unreadable-%1.json"_s.arg(time.toString(u"yyyy-MM-dd'T'HH-mm-ss"_s)));
}

void removeOldAsideFiles(const QDir& folder)
{
    // The date in the name sorts them by age.
    const QStringList names = folder.entryList({u"data.unreadable-*.json"_s},
                                               QDir::Files | QDir::Hidden | QDir::NoSymLinks, QDir::Name);
    for (qsizetype i = 0; i < names.size() - asideLimit; ++i) {
        QFile::remove(folder.filePath(names[i]));
    }
}

} // namespace

DataFile::DataFile()
{
    std::signal(SIGXFSZ, SIG_IGN);
}

QUrl DataFile::fileURL() const
{
    // A failure shows when the file is opened.
    static_cast<void>(makePrivateFolder(dataFolder()));
    return QUrl::fromLocalFile(dataPath());
}

DataReading DataFile::read() const
{
    const QByteArray path = QFile::encodeName(fileURL().toLocalFile());
    // Without O_NONBLOCK opening a pipe would wait for a writer.
    const FileDescriptor file(::open(path.constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
    if (!file.isOpen()) {
        return errno == ENOENT ? DataReading{} : failed(errno);
    }
    struct stat status = {};
    if (::fstat(file.get(), &status) != 0) {
        return failed(errno);
    }
    if (!S_ISREG(status.st_mode)) {
        return failed(EISDIR);
    }
    const FileIdentity identity = FileIdentity::ofDescriptor(file.get());
    QByteArray bytes;
    if (const int error = readStart(file, largestPayload + 1, bytes); error != 0) {
        return failed(error);
    }
    auto payload = decodePayload(bytes);
    if (!payload) {
        return {
            .outcome = DataReading::Outcome::Undecodable, .payload = {}, .error = 0, .identity = identity};
    }
    return {.outcome = DataReading::Outcome::Read,
            .payload = *std::move(payload),
            .error = 0,
            .identity = identity};
}

int DataFile::save(const Payload& payload) const
{
    std::optional<FileIdentity> any;
    return save(payload, any);
}

int DataFile::save(const Payload& payload, std::optional<FileIdentity>& known) const
{
    const auto json = encodePayload(payload);
    if (!json) {
        return EFBIG;
    }
    if (const int error = makePrivateFolder(dataFolder()); error != 0) {
        return error;
    }
    return writeDurably(dataPath(), u"data.tmp.json"_s, *json, known);
}

int DataFile::moveAside() const
{
    // A link stays a link: its target is moved.
    const QFileInfo file(QFileInfo(dataPath()).canonicalFilePath());
    const QDir folder = file.dir();
    QDateTime time = QDateTime::currentDateTime();
    while (QFileInfo::exists(asidePath(folder, time))) {
        time = time.addSecs(1);
    }
    if (std::rename(QFile::encodeName(file.filePath()).constData(),
                    QFile::encodeName(asidePath(folder, time)).constData()) != 0) {
        return errno;
    }
    removeOldAsideFiles(folder);
    return 0;
}

} // namespace tintwick
