#include "DataProblem.h"

#include <QCoreApplication>

#include <cerrno>
#include <cstring>

namespace tintwick {

namespace {

QString translated(const char* text)
{
    return QCoreApplication::translate("DataProblem", text);
}

QString systemReason(int error)
{
    return QString::fromLocal8Bit(std::strerror(error));
}

QString whyNotRead(int error)
{
    switch (error) {
    case EISDIR:
    case ENXIO:
        return translated("Not saved: data.json is not a file");
    case ENOTDIR:
        return translated("Not saved: a file has the name of the data folder");
    default:
        return translated("Nothing is saved, because the stored colors cannot be read: %1")
            .arg(systemReason(error));
    }
}

QString whyNotWritten(int error)
{
    switch (error) {
    case ENOSPC:
    case EDQUOT:
        return translated("Not saved: the disk is full");
    case EROFS:
    case EACCES:
    case EPERM:
        return translated("Not saved: the folder is read-only");
    case EIO:
        return translated("Not saved: the disk reports an error");
    case EFBIG:
        return translated("Not saved: the data is too large");
    case EISDIR:
    case ENXIO:
    case ENOTDIR:
        return whyNotRead(error);
    default:
        return translated("Not saved: %1").arg(systemReason(error));
    }
}

} // namespace

QString DataProblem::sentence() const
{
    switch (kind) {
    case Kind::CannotRead:
        return whyNotRead(error);
    case Kind::CannotWrite:
        return whyNotWritten(error);
    case Kind::None:
        break;
    }
    return {};
}

} // namespace tintwick
