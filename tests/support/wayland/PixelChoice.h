#pragma once

#include "support/wayland/WaylandDesktop.h"

#include <QByteArray>

#include <vector>

namespace tintwick {

/// Pixels at the corners and edges of each output, and just inside of them.
[[nodiscard]] std::vector<WaylandDesktop::Pixel> cornersAndEdges(WaylandDesktop& desktop);

/// So many pixels anywhere on the outputs, the same in each run.
[[nodiscard]] std::vector<WaylandDesktop::Pixel> randomPixels(WaylandDesktop& desktop, int count);

/// For the message of a failed check.
[[nodiscard]] QByteArray description(const WaylandDesktop::Pixel& pixel);

} // namespace tintwick
