#pragma once

#include <QByteArray>

namespace tintwick {

// Completions for shells, made from the table of commands.

[[nodiscard]] QByteArray bashCompletion();
[[nodiscard]] QByteArray zshCompletion();
[[nodiscard]] QByteArray fishCompletion();

} // namespace tintwick
