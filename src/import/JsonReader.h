#pragma once

#include "ImportedPalette.h"

#include <QByteArrayView>

namespace tintwick {

/// Reads design tokens (of the Design Tokens Community Group, and older ones whose colours are texts) and our JSON export.
/// Tokens that are no colours, and references to other tokens, are left out.
[[nodiscard]] Import readJsonPalette(QByteArrayView bytes);

} // namespace tintwick
