#pragma once

#include "ImportedPalette.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

namespace tintwick {

/// The suffixes of files that usually have colours, without dots.
[[nodiscard]] QStringList importedSuffixes();

/// Reads a palette file, a style sheet, JSON or a picture. The content decides the kind. A palette without a name of its own gets
/// the file's. A file without colours, or with more than a palette should hold, is a problem.
[[nodiscard]] Import importFile(const QString& path);
/// The same for the content of a file; `name` is the file's without its suffix.
[[nodiscard]] Import importBytes(const QByteArray& bytes, const QString& name);

} // namespace tintwick
