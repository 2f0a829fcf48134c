#pragma once

#include <QString>

namespace tintwick {

/// A name for use in a CSS identifier or a file name: lower case, a hyphen for each white-space character, and of the
/// other characters only letters, numbers and hyphens. A letter keeps its combining marks. Runs of hyphens stay. The
/// result may be empty.
[[nodiscard]] QString slugify(const QString& text);

} // namespace tintwick
