#pragma once

#include <QStringList>
#include <QUrl>

#include <optional>

namespace tintwick {

/// The places where the project's own page may be on this machine: where it is installed, then where it was built.
[[nodiscard]] QStringList projectPagePlaces();
/// The first of some files that exists, or nothing.
[[nodiscard]] std::optional<QUrl> findProjectPage(const QStringList& places = projectPagePlaces());

} // namespace tintwick
