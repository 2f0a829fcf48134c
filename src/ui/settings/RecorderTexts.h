#pragma once

#include "Alert.h"
#include "RecordedKey.h"

namespace tintwick {

class ShortcutRegistry;

// What the recorder says about a key.

/// Why the key cannot be a shortcut.
[[nodiscard]] QString refusalText(RecordedKey::Refusal refusal);
/// The alert about a key that something else uses. Its second button, if it has one, stores the shortcut anyway.
[[nodiscard]] Alert alertAbout(const RecordedKey& key, const ShortcutRegistry& shortcuts);

} // namespace tintwick
