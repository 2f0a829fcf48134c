#pragma once

#include "CapturedColor.h"

#include <QList>

namespace tintwick {

/// By the hue of OKLCH, then from dark to light; greys come last. By the lightness of Oklab, from dark to light.
enum class ColorOrder { Hue, Lightness };

/// The colours in this order. Equal ones keep theirs. Ignores alpha.
[[nodiscard]] QList<CapturedColor> sorted(const QList<CapturedColor>& colors, ColorOrder order);

} // namespace tintwick
