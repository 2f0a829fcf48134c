#pragma once

#include <QLatin1StringView>
#include <QString>

namespace tintwick::KeyboardShortcuts {

/// A text that the user reads, by its key (for example "record_shortcut"), in the user's language where there is a
/// translation, otherwise in English. A key that is not known comes back itself.
[[nodiscard]] QString localizedString(QLatin1StringView key);

} // namespace tintwick::KeyboardShortcuts
