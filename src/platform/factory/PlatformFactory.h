#pragma once

#include "Platform.h"

#include <memory>

class QString;

namespace tintwick {

/// Connects to the desktop that the environment names. Needs no application object. Returns null on an unsupported
/// desktop and sets `whyNot` to one sentence for the user.
[[nodiscard]] std::unique_ptr<Platform> createPlatform(QString& whyNot);

} // namespace tintwick
