#pragma once

#include <QString>

namespace tintwick {

/// People's own words where there is one line for them: line breaks, tabs and other control characters become spaces.
[[nodiscard]] QString inOneLine(QString words);

} // namespace tintwick
