#pragma once

#include <QStringList>

#include <optional>

namespace tintwick {

class AppState;

/// Adds a palette for each file. Returns one sentence for the user when a file is refused; then nothing is changed.
[[nodiscard]] std::optional<QString> importFiles(AppState& appState, const QStringList& paths);

} // namespace tintwick
