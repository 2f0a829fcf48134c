#pragma once

#include <QString>

namespace tintwick {

/// Returns the symbol for the stored `icon` text of a collection; empty, which draws nothing, for an unknown text.
[[nodiscard]] QString collectionSymbol(const QString& storedIcon);

} // namespace tintwick
