#pragma once

#include "ImportedPalette.h"

#include <QByteArrayView>

namespace tintwick {

/// Reads the custom properties of CSS ("--sky: #38BDF8") and the variables of SCSS ("$sky: #38BDF8") whose value is one colour.
/// A value that begins like a colour and is none is an error, unless it refers to another variable.
[[nodiscard]] Import readStyleSheet(QByteArrayView bytes);

} // namespace tintwick
