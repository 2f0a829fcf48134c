#pragma once

#include "PickRequest.h"

#include <memory>

namespace tintwick {

class Platform;

/// Picks colours without a running Tintwick: reads and writes the data file itself and shows nothing but the loupe.
/// Returns when the series has ended. Needs a QApplication.
[[nodiscard]] PickAnswer pickAlone(const PickRequest& request, std::unique_ptr<Platform> platform);

} // namespace tintwick
