#pragma once

#include "KeyNames.h"
#include "Shortcut.h"

#include <QString>

#include <optional>

namespace tintwick {

class KeyboardLayout;

/// What the user sees, for example "⌥⇧C" or "Alt+Shift+C". A dead key is shown as its accent, a key that the layout does
/// not use as U+FFFD.
[[nodiscard]] QString describe(const Shortcut& shortcut, const KeyboardLayout& layout,
                               KeyNames names = KeyNames::Signs);

/// The one character that a key types without modifiers. None for special keys, for dead keys and for keys that type several
/// characters. Key codes are those of KeyCode.h.
[[nodiscard]] std::optional<QString> characterOf(int keyCode, const KeyboardLayout& layout);

} // namespace tintwick
