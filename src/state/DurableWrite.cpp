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
    // Removes the file of an interrupted save instead of reusing it, because its mode may differ and it may have a second
    // name.
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

/// Reserves the room for `size` bytes from the start of the file, without a change that a reader of the file sees.
bool reserve(const FileDescriptor& file, off_t size)
{
    rlimit limit{};
    if (::getrlimit(RLIMIT_FSIZE, &limit) != 0 || static_cast<rlim_t>(size) > limit.rlim_cur) {
        return false;
    }
    // posix_fallocate() would append zeros to the old text, and writes to the file on a file system without such a call.
    return ::fallocate(file.get(), FALLOC_FL_KEEP_SIZE, 0, size) == 0;
}

void overwriteInPlace(const QByteArray& path, const QByteArray& json)
{
    const bool existed = ::access(path.constData(), F_OK) == 0;
    // Synchronous, so that the write is on the disk before the file is truncated to its new length.
    const FileDescriptor file(::open(path.constData(), O_WRONLY | O_CREAT | O_CLOEXEC | O_DSYNC, userOnly));
    struct stat status = {};
    if (!file.isOpen() || ::fstat(file.get(), &status) != 0 || !S_ISREG(status.st_mode)) {
        return;
    }

    // Line feeds, which JSON ignores, overwrite the rest of a longer old text.
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
        // A rename would replace the link itself, so the new file is created beside the target of the link.
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
