#pragma once

#include "CapturedColor.h"

#include <QByteArray>
#include <QList>
#include <QString>

namespace tintwick {

/// Design tokens in the format of the Design Tokens Community Group, 2025.10, UTF-8: one group with a token per colour, named
/// by uniqueNames(). The description of a token is the colour's name.
[[nodiscard]] QByteArray buildDesignTokens(const QList<CapturedColor>& colors, const QString& paletteName);

} // namespace tintwick
