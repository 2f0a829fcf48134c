#pragma once

#include "Shortcut.h"

#include <QString>

#include <optional>

namespace tintwick {
class KeyboardLayout;
}

namespace tintwick::KeyboardShortcuts {

/// What the user sees, for example "⌥⇧C"; a key that types no character of its own is shown as U+FFFD.
[[nodiscard]] QString presentableDescription(const Shortcut& shortcut, const KeyboardLayout& layout);

/// The one character that the shortcut's key types without modifiers; none for special keys, dead keys and keys that
/// type more than one.
[[nodiscard]] std::optional<QString> keyToCharacter(const Shortcut& shortcut, const KeyboardLayout& layout);

} // namespace tintwick::KeyboardShortcuts
