#include "PrivateFolder.h"

#include <QFile>
#include <QFileInfo>

#include <cerrno>

#include <sys/stat.h>

namespace tintwick {

int makePrivateFolder(const QString& path)
{
    const QFileInfo folder(path);
    if (folder.exists()) {
        return folder.isDir() ? 0 : ENOTDIR;
    }
    if (const int error = makePrivateFolder(folder.path()); error != 0) {
        return error;
    }
    return ::mkdir(QFile::encodeName(path).constData(), S_IRWXU) == 0 || errno == EEXIST ? 0 : errno;
}

} // namespace tintwick
