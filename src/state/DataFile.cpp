#include "DataFile.h"

#include "DurableWrite.h"
#include "PayloadCoding.h"

#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

#include <csignal>

#include <sys/stat.h>

namespace tintwick {

namespace {

/// Creates a folder and its missing parents, readable by the user only. Does not change an existing folder.
void makePrivateFolder(const QString& path)
{
    const QFileInfo folder(path);
    if (folder.exists()) {
        return;
    }
    makePrivateFolder(folder.path());
    ::mkdir(QFile::encodeName(path).constData(), S_IRWXU);
}

} // namespace

DataFile::DataFile()
{
    std::signal(SIGXFSZ, SIG_IGN);
}

QUrl DataFile::fileURL() const
{
    const QString dataHome = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
    if (dataHome.isEmpty()) {
        qFatal("There is no folder for the user's data");
    }
    const QString folder = dataHome + QStringLiteral("/Tintwick");
    makePrivateFolder(folder);
    return QUrl::fromLocalFile(folder + QStringLiteral("/data.json"));
}

std::optional<Payload> DataFile::load() const
{
    QFile file(fileURL().toLocalFile());
    // Reading a pipe or a device would block or never end.
    if (!QFileInfo(file).isFile() || !file.open(QIODevice::ReadOnly)) {
        return std::nullopt;
    }
    return decodePayload(file.read(largestPayload + 1));
}

void DataFile::save(const QList<CapturedColor>& history, const QList<ColorCollection>& collections,
                    ColorFormat defaultFormat) const
{
    const auto json = encodePayload({history, collections, defaultFormat});
    if (!json) {
        return;
    }
    const QString target = fileURL().toLocalFile();
    const QString temporary = QFileInfo(target).path() + QStringLiteral("/data.tmp.json");
    writeDurably(target, temporary, *json);
}

} // namespace tintwick
