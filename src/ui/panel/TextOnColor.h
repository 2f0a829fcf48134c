#pragma once

#include "Theme.h"

namespace tintwick {

struct CapturedColor;

/// Black or white, whichever can be read better on a colour. Below a translucent one lies a checkerboard.
[[nodiscard]] theme::Color textOn(const CapturedColor& color);

} // namespace tintwick
