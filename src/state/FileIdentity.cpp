#include "FileIdentity.h"

#include <QByteArray>

#include <sys/stat.h>

namespace tintwick {

namespace {

FileIdentity identity(const struct stat& status)
{
    return {.exists = true,
            .device = status.st_dev,
            .number = status.st_ino,
            .size = status.st_size,
            .seconds = status.st_mtim.tv_sec,
            .nanoseconds = status.st_mtim.tv_nsec};
}

} // namespace

FileIdentity FileIdentity::ofPath(const QByteArray& path)
{
    struct stat status = {};
    return ::stat(path.constData(), &status) == 0 ? identity(status) : FileIdentity{};
}

FileIdentity FileIdentity::ofDescriptor(int descriptor)
{
    struct stat status = {};
    return ::fstat(descriptor, &status) == 0 ? identity(status) : FileIdentity{};
}

} // namespace tintwick
