#pragma once

#include <QString>

namespace tintwick {

/// A file name made of `stem` and `ending`, with the stem cut at a character boundary so that the name fits a file system
/// whose limit is 255 bytes of UTF-8. Seven of these bytes stay free, because an atomic write adds as many for its
/// temporary file.
[[nodiscard]] QString suggestedName(const QString& stem, const QString& ending);

} // namespace tintwick
