#pragma once

#include <QString>

namespace tintwick {

/// A text for a line of a file: a blank stands for each line break and each other control character.
[[nodiscard]] QString inSingleLine(QString text);

} // namespace tintwick
