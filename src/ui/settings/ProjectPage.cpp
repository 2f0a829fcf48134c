#include "ProjectPage.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

#include <algorithm>

namespace tintwick {

using namespace Qt::StringLiterals;

QStringList projectPagePlaces()
{
    const QString program = QCoreApplication::applicationDirPath();
    QStringList places{program + u"/../share/doc/tintwick/README.md"_s};
    for (const QString& place : QStandardPaths::standardLocations(QStandardPaths::GenericDataLocation)) {
        places.append(place + u"/doc/tintwick/README.md"_s);
    }
    // A program that is not installed lies in build/<preset>.
    return places << program + u"/../../README.md"_s;
}

std::optional<QUrl> findProjectPage(const QStringList& places)
{
    const auto found =
        std::ranges::find_if(places, [](const QString& place) { return QFileInfo(place).isFile(); });
    return found == places.end() ? std::nullopt : std::optional(QUrl::fromLocalFile(QDir::cleanPath(*found)));
}

} // namespace tintwick
