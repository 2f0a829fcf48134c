#include "ImportFiles.h"

#include "AppState.h"
#include "FileImport.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QMimeData>
#include <QUrl>

namespace tintwick {

std::optional<QString> importFiles(AppState& appState, const QStringList& paths)
{
    QList<ImportedPalette> palettes;
    for (const QString& path : paths) {
        const Import result = importFile(path);
        if (const auto* problem = std::get_if<ImportProblem>(&result)) {
            return QCoreApplication::translate("ImportFiles", "%1 cannot be imported: %2")
                .arg(QFileInfo(path).fileName(), problem->sentence);
        }
        palettes.append(std::get<ImportedPalette>(result));
    }
    for (const ImportedPalette& palette : palettes) {
        appState.importCollection(palette.name, palette.colors);
    }
    return std::nullopt;
}

QStringList localFilesIn(const QMimeData& content)
{
    QStringList paths;
    for (const QUrl& url : content.urls()) {
        if (url.isLocalFile()) {
            paths.append(url.toLocalFile());
        }
    }
    return paths;
}

} // namespace tintwick
