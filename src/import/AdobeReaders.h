#pragma once

#include "ImportedPalette.h"

#include <QByteArrayView>

namespace tintwick {

// Binary palettes of Adobe's programs. Colours of RGB, CMYK without a profile, Lab (D50) and grey are read; those outside sRGB
// become the nearest inside.

[[nodiscard]] bool isAdobeSwatchExchange(QByteArrayView bytes);
/// An .ase file. Its name is that of its first group.
[[nodiscard]] Import readAdobeSwatchExchange(QByteArrayView bytes);

[[nodiscard]] bool isAdobeColorTable(QByteArrayView bytes);
/// An .aco file of version 1 or 2; the names of version 2 are read, and HSB colours too.
[[nodiscard]] Import readAdobeColorTable(QByteArrayView bytes);

} // namespace tintwick
