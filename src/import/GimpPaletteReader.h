#pragma once

#include "ImportedPalette.h"

#include <QByteArrayView>

namespace tintwick {

[[nodiscard]] bool isGimpPalette(QByteArrayView bytes);
/// Reads the text format of GIMP, Inkscape and Krita.
[[nodiscard]] Import readGimpPalette(QByteArrayView bytes);

} // namespace tintwick
