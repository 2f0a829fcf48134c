#pragma once

#include <QStringList>

#include <optional>

class QMimeData;

namespace tintwick {

class AppState;

/// Adds a palette for each file. Returns one sentence for the user when a file is refused; then nothing is changed.
[[nodiscard]] std::optional<QString> importFiles(AppState& appState, const QStringList& paths);

/// The paths of the local files that were dropped or copied.
[[nodiscard]] QStringList localFilesIn(const QMimeData& content);

} // namespace tintwick
