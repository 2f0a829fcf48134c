#pragma once

#include "CapturedColor.h"

#include <QByteArray>
#include <QList>
#include <QString>

namespace tintwick {

// Files with the palettes of drawing programs. They hold the names of colours as they are, and no opacity. A colour without a
// name is called by its code.

/// The text format of GIMP, Inkscape and Krita, UTF-8. Components are rounded to bytes.
[[nodiscard]] QByteArray buildGimpPalette(const QList<CapturedColor>& colors, const QString& paletteName);
/// The binary Adobe Swatch Exchange format: one group of global RGB colours.
[[nodiscard]] QByteArray buildAdobeSwatches(const QList<CapturedColor>& colors, const QString& paletteName);

} // namespace tintwick
