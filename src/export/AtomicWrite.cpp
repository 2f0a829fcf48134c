#include "AtomicWrite.h"

#include <QFileInfo>
#include <QSaveFile>

namespace tintwick {

bool writeAtomically(const QString& path, const QByteArray& data)
{
    const QFileInfo target(path);
    // A rename would put a file in the place of a device.
    if (target.exists() && !target.isFile()) {
        return false;
    }
    QSaveFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(data) == data.size() && file.commit();
}

} // namespace tintwick
