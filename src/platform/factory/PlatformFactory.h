#pragma once

#include "Platform.h"

#include <memory>

class QString;

namespace tintwick {

/// Connects to the desktop that the environment names; needs no application object yet. Returns none on a desktop that
/// cannot be served, and sets `whyNot` to one sentence for the user.
[[nodiscard]] std::unique_ptr<Platform> createPlatform(QString& whyNot);

} // namespace tintwick
