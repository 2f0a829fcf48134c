#include "ProjectPage.h"

#include <QFileInfo>
#include <QStandardPaths>

#include <algorithm>

namespace tintwick {

using namespace Qt::StringLiterals;

QStringList projectPagePlaces()
{
    QStringList places = QStandardPaths::standardLocations(QStandardPaths::GenericDataLocation);
    for (QString& place : places) {
        place += u"/doc/tintwick/README.md"_s;
    }
    return places << QStringLiteral(TINTWICK_README);
}

std::optional<QUrl> findProjectPage(const QStringList& places)
{
    const auto found =
        std::ranges::find_if(places, [](const QString& place) { return QFileInfo(place).isFile(); });
    return found == places.end() ? std::nullopt : std::optional(QUrl::fromLocalFile(*found));
}

} // namespace tintwick
