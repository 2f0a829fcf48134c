#pragma once

#include <QString>

namespace tintwick {

/// The name of the symbol to draw for a collection's stored `icon` text. Empty, which draws nothing, for any text that the
/// program does not store itself.
[[nodiscard]] QString collectionSymbol(const QString& storedIcon);

} // namespace tintwick
