#pragma once

#include <QStringList>
#include <QUrl>

#include <optional>

namespace tintwick {

/// Where the project page may be on this machine: the installed file, then the one in the source tree.
[[nodiscard]] QStringList projectPagePlaces();
/// The first file that exists; none without one.
[[nodiscard]] std::optional<QUrl> findProjectPage(const QStringList& places = projectPagePlaces());

} // namespace tintwick
