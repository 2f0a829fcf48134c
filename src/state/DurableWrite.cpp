#include "DurableWrite.h"

#include "FileDescriptor.h"

#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <cstdio>

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/stat.h>

namespace tintwick {

namespace {

constexpr mode_t userOnly = S_IRUSR | S_IWUSR;

bool writeAll(const FileDescriptor& file, const QByteArray& bytes)
{
    qsizetype written = 0;
    while (written < bytes.size()) {
        const ssize_t count = ::pwrite(file.get(), bytes.constData() + written,
                                       static_cast<size_t>(bytes.size() - written), written);
        if (count < 0 && errno != EINTR) {
            return false;
        }
        if (count > 0) {
            written += count;
        }
    }
    return true;
}

bool writeNewFile(const QByteArray& path, const QByteArray& bytes)
{
    // What an interrupted save left behind is removed rather than reused: a new file has our mode and no
    // other name.
    ::unlink(path.constData());
    const FileDescriptor file(::open(path.constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, userOnly));
    if (!file.isOpen()) {
        return false;
    }
    if (writeAll(file, bytes) && ::fsync(file.get()) == 0) {
        return true;
    }
    ::unlink(path.constData());
    return false;
}

void syncFolderOf(const QByteArray& path)
{
    const QByteArray folder = path.left(path.lastIndexOf('/') + 1);
    const FileDescriptor descriptor(::open(folder.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (descriptor.isOpen()) {
        ::fsync(descriptor.get());
    }
}

/// Makes sure that writing `size` bytes from the start of the file cannot run out of room, without changing
/// anything that a reader of the file sees.
bool reserve(const FileDescriptor& file, off_t size)
{
    rlimit limit{};
    if (::getrlimit(RLIMIT_FSIZE, &limit) != 0 || static_cast<rlim_t>(size) > limit.rlim_cur) {
        return false;
    }
    // posix_fallocate would append zeros to the old text, and writes to the file where the file system has no
    // such call.
    return ::fallocate(file.get(), FALLOC_FL_KEEP_SIZE, 0, size) == 0;
}

void overwriteInPlace(const QByteArray& path, const QByteArray& json)
{
    const bool existed = ::access(path.constData(), F_OK) == 0;
    // Synchronous, so that the one write is on the disk before the file is cut to its new length.
    const FileDescriptor file(::open(path.constData(), O_WRONLY | O_CREAT | O_CLOEXEC | O_DSYNC, userOnly));
    struct stat status = {};
    if (!file.isOpen() || ::fstat(file.get(), &status) != 0 || !S_ISREG(status.st_mode)) {
        return;
    }

    // A shorter text is filled up with line feeds, which mean nothing in JSON, so that no tail of the old one
    // follows it.
    QByteArray filledUp = json;
    if (filledUp.size() < status.st_size) {
        filledUp = filledUp.leftJustified(status.st_size, '\n');
    }

    if (!reserve(file, filledUp.size())) {
        if (!existed) {
            ::unlink(path.constData());
        }
        return;
    }
    if (writeAll(file, filledUp) && ::ftruncate(file.get(), json.size()) == 0) {
        ::fsync(file.get());
    }
}

} // namespace

void writeDurably(const QString& target, const QString& temporary, const QByteArray& json)
{
    const QFileInfo targetInfo(target);
    if (targetInfo.isSymLink() && targetInfo.exists()) {
        // A rename would put a file in the place of the link; the new file has to be born beside the one it
        // replaces.
        const QFileInfo linked(targetInfo.canonicalFilePath());
        writeDurably(linked.filePath(), linked.path() + u'/' + QFileInfo(temporary).fileName(), json);
        return;
    }

    const QByteArray targetPath = QFile::encodeName(target);
    const QByteArray temporaryPath = QFile::encodeName(temporary);
    if (!writeNewFile(temporaryPath, json)) {
        overwriteInPlace(targetPath, json);
        return;
    }
    if (std::rename(temporaryPath.constData(), targetPath.constData()) == 0) {
        syncFolderOf(targetPath);
    }
}

} // namespace tintwick
