#include "Autostart.h"

#include "DurableWrite.h"
#include "PrivateFolder.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

#include <cerrno>
#include <optional>
#include <unistd.h>

namespace tintwick {

namespace {

using namespace Qt::StringLiterals;

constexpr qint64 mostBytes = 64 * 1024;

/// As a string of a desktop entry.
QString escaped(const QString& text)
{
    return QString(text).replace(u'\\', u"\\\\"_s);
}

/// As one argument of the key Exec.
QString quoted(const QString& argument)
{
    QString text;
    for (const QChar character : argument) {
        if (u"\"`$\\"_s.contains(character)) {
            text += u'\\';
        }
        text += character;
        // A single one starts a field code.
        if (character == u'%') {
            text += character;
        }
    }
    return u'"' + text + u'"';
}

} // namespace

QString autostartFile()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
           u"/autostart/org.tintwick.Tintwick.desktop"_s;
}

bool startsAtLogin()
{
    QFile file(autostartFile());
    // Opening a pipe would wait for a writer.
    if (!QFileInfo(file).isFile() || !file.open(QIODevice::ReadOnly)) {
        return false;
    }
    const auto lines = file.read(mostBytes).split('\n');
    return !lines.contains("Hidden=true") && !lines.contains("X-GNOME-Autostart-enabled=false");
}

int setStartsAtLogin(bool starts)
{
    const QString file = autostartFile();
    if (!starts) {
        return ::unlink(QFile::encodeName(file).constData()) == 0 || errno == ENOENT ? 0 : errno;
    }
    if (const int error = makePrivateFolder(QFileInfo(file).path())) {
        return error;
    }
    std::optional<FileIdentity> written;
    return writeDurably(file, u"org.tintwick.Tintwick.desktop.tmp"_s,
                        autostartEntry(QCoreApplication::applicationFilePath()), written);
}

QByteArray autostartEntry(const QString& program)
{
    return u"[Desktop Entry]\n"
           "Type=Application\n"
           "Name=Tintwick\n"
           "Comment=Pick colors from the screen with a loupe\n"
           "Icon=org.tintwick.Tintwick\n"
           "TryExec=%1\n"
           "Exec=%2 --background\n"_s.arg(escaped(program), escaped(quoted(program)))
               .toUtf8();
}

} // namespace tintwick
