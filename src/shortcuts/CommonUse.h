#pragma once

#include "Shortcut.h"

#include <QString>

#include <optional>

namespace tintwick {

class KeyboardLayout;

/// What most programs or desktops do when these keys are pressed, as a verb: "copy" for Ctrl+C. None when the keys have
/// no common use.
[[nodiscard]] std::optional<QString> commonUse(const Shortcut& shortcut, const KeyboardLayout& layout);

} // namespace tintwick
