#include "ManPage.h"
#include "ShellCompletions.h"

#include <QFile>
#include <QString>

#include <cstdlib>

// usage: tintwick_write_pages VERSION FOLDER
int main(int argc, char** argv)
{
    constexpr int expectedArguments = 3;
    if (argc != expectedArguments) {
        return EXIT_FAILURE;
    }
    const QString folder = QFile::decodeName(argv[2]);
    const auto write = [&folder](const QString& name, const QByteArray& content) {
        QFile file(folder + u'/' + name);
        return file.open(QIODevice::WriteOnly) && file.write(content) == content.size() && file.flush();
    };
    const bool isWritten =
        write(QStringLiteral("tintwick.1"), tintwick::manPage(QString::fromUtf8(argv[1]))) &&
        write(QStringLiteral("tintwick.bash"), tintwick::bashCompletion()) &&
        write(QStringLiteral("_tintwick"), tintwick::zshCompletion()) &&
        write(QStringLiteral("tintwick.fish"), tintwick::fishCompletion());
    return isWritten ? EXIT_SUCCESS : EXIT_FAILURE;
}
