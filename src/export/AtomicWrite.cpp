#include "AtomicWrite.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QSaveFile>

namespace tintwick {

namespace {

bool fail(QString* whyNot, const QString& reason)
{
    if (whyNot != nullptr) {
        *whyNot = reason;
    }
    return false;
}

} // namespace

bool writeAtomically(const QString& path, const QByteArray& data, QString* whyNot)
{
    const QFileInfo target(path);
    // A rename would replace a device by a file.
    if (target.exists() && !target.isFile()) {
        return fail(whyNot, QCoreApplication::translate("AtomicWrite", "This is not a file"));
    }
    QSaveFile file(path);
    const bool isWritten =
        file.open(QIODevice::WriteOnly) && file.write(data) == data.size() && file.commit();
    return isWritten || fail(whyNot, file.errorString());
}

} // namespace tintwick
