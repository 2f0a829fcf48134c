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

// The functions with a result return 0 or an errno value; only openNew() returns a descriptor.

int writeAll(const FileDescriptor& file, const QByteArray& bytes)
{
    qsizetype written = 0;
    while (written < bytes.size()) {
        const ssize_t count = ::pwrite(file.get(), bytes.constData() + written,
                                       static_cast<size_t>(bytes.size() - written), written);
        if (count < 0 && errno != EINTR) {
            return errno;
        }
        if (count > 0) {
            written += count;
        }
    }
    return 0;
}

int openNew(const QByteArray& path)
{
    // Removes the file of an interrupted save instead of reusing it, because its mode may differ and it may have a second
    // name.
    ::unlink(path.constData());
    return ::open(path.constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, userOnly);
}

int writeAndSync(const FileDescriptor& file, const QByteArray& bytes)
{
    const int error = writeAll(file, bytes);
    return error == 0 && ::fsync(file.get()) != 0 ? errno : error;
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
int reserve(const FileDescriptor& file, off_t size)
{
    rlimit limit{};
    if (::getrlimit(RLIMIT_FSIZE, &limit) != 0 || static_cast<rlim_t>(size) > limit.rlim_cur) {
        return EFBIG;
    }
    // posix_fallocate() would append zeros to the old text, and writes to the file on a file system without such a call.
    return ::fallocate(file.get(), FALLOC_FL_KEEP_SIZE, 0, size) == 0 ? 0 : errno;
}

bool isOther(const QByteArray& path, const std::optional<FileIdentity>& known)
{
    return known && FileIdentity::ofPath(path) != *known;
}

int overwriteInPlace(const QByteArray& path, const QByteArray& json, std::optional<FileIdentity>& known)
{
    if (isOther(path, known)) {
        return ESTALE;
    }
    const bool existed = ::access(path.constData(), F_OK) == 0;
    // Synchronous, so that the write is on the disk before the file is truncated to its new length.
    const FileDescriptor file(::open(path.constData(), O_WRONLY | O_CREAT | O_CLOEXEC | O_DSYNC, userOnly));
    struct stat status = {};
    if (!file.isOpen() || ::fstat(file.get(), &status) != 0) {
        return errno;
    }

    // Line feeds, which JSON ignores, overwrite the rest of a longer old text.
    QByteArray filledUp = json;
    if (filledUp.size() < status.st_size) {
        filledUp = filledUp.leftJustified(status.st_size, '\n');
    }

    if (const int error = reserve(file, filledUp.size()); error != 0) {
        if (!existed) {
            ::unlink(path.constData());
        }
        return error;
    }
    if (const int error = writeAll(file, filledUp); error != 0) {
        return error;
    }
    if (::ftruncate(file.get(), json.size()) != 0 || ::fsync(file.get()) != 0) {
        return errno;
    }
    known = FileIdentity::ofDescriptor(file.get());
    return 0;
}

int replace(const QByteArray& target, const QByteArray& temporary, const QByteArray& json,
            std::optional<FileIdentity>& known)
{
    const FileDescriptor file(openNew(temporary));
    int error = file.isOpen() ? writeAndSync(file, json) : errno;
    // As late as possible, because writing takes time.
    if (error == 0 && isOther(target, known)) {
        error = ESTALE;
    }
    if (error == 0 && std::rename(temporary.constData(), target.constData()) == 0) {
        known = FileIdentity::ofDescriptor(file.get());
        syncFolderOf(target);
        return 0;
    }
    const int failure = error != 0 ? error : errno;
    if (!file.isOpen()) {
        const int failureInPlace = overwriteInPlace(target, json, known);
        // Some file systems cannot reserve room.
        return failureInPlace == EOPNOTSUPP ? failure : failureInPlace;
    }
    ::unlink(temporary.constData());
    return failure == ENOSPC || failure == EDQUOT ? overwriteInPlace(target, json, known) : failure;
}

/// The file that a chain of links leads to, which need not exist. A chain without an end gives its last link.
QString resolved(const QString& path)
{
    constexpr int longestChain = 40;
    QFileInfo file(path);
    for (int i = 0; i < longestChain && file.isSymLink(); ++i) {
        file.setFile(file.symLinkTarget());
    }
    return file.filePath();
}

} // namespace

int writeDurably(const QString& target, const QString& temporaryName, const QByteArray& json,
                 std::optional<FileIdentity>& known)
{
    // A rename would replace the link itself, so the new file is created beside the target of the link.
    const QString file = resolved(target);
    const QByteArray path = QFile::encodeName(file);
    struct stat status = {};
    if (::lstat(path.constData(), &status) == 0 && !S_ISREG(status.st_mode)) {
        return S_ISLNK(status.st_mode) ? ELOOP : EISDIR;
    }
    return replace(path, QFile::encodeName(QFileInfo(file).path() + u'/' + temporaryName), json, known);
}

} // namespace tintwick
