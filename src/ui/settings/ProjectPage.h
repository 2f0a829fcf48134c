#pragma once

#include <QStringList>
#include <QUrl>

#include <optional>

namespace tintwick {

/// Where the project page may be on this machine: beside the installed program, in the data folders, then in the source
/// tree around the program.
[[nodiscard]] QStringList projectPagePlaces();
/// The first file that exists; none without one.
[[nodiscard]] std::optional<QUrl> findProjectPage(const QStringList& places = projectPagePlaces());

} // namespace tintwick
