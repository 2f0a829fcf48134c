#pragma once

#include "Shortcut.h"

#include <QString>

#include <optional>

namespace tintwick {

/// The stored form of a shortcut: a JSON object with both numbers.
[[nodiscard]] QString toJson(const Shortcut& shortcut);

/// Both numbers as stored; none when the text is not a JSON object with both as integers.
[[nodiscard]] std::optional<Shortcut> shortcutFromJson(const QString& text);

} // namespace tintwick
