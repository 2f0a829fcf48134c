#pragma once

#include <QString>

namespace tintwick {

/// A name as it stands in a CSS identifier or a file name: lower case, a hyphen for each white-space
/// character, and of the rest only letters, numbers and hyphens. A letter keeps the marks that belong to it.
/// Runs of hyphens stay, and the result may be empty.
[[nodiscard]] QString slugify(const QString& text);

} // namespace tintwick
