#pragma once

#include <QString>

namespace tintwick {

/// Text of the user for a place with one line: line breaks, tabs and other control characters become spaces.
[[nodiscard]] QString inOneLine(QString words);

} // namespace tintwick
