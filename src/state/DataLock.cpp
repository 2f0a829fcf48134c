#include "DataLock.h"

#include <QFile>

#include <cerrno>

#include <fcntl.h>
#include <sys/file.h>

namespace tintwick {

DataLock::DataLock(const QString& folder)
    : m_folder(::open(QFile::encodeName(folder).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC))
{
}

bool DataLock::acquire()
{
    return ::flock(m_folder.get(), LOCK_EX | LOCK_NB) == 0 || errno != EWOULDBLOCK;
}

} // namespace tintwick
