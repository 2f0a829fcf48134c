#pragma once

#include <cstdint>

namespace tintwick {

/// What became of a capture.
enum class CaptureOutcome : std::uint8_t {
    Taken,
    /// The desktop does not offer this way.
    Unavailable,
    /// This way does not work now; another may.
    Failed,
    /// The user has closed the question of the desktop.
    Cancelled,
    /// The desktop does not let this program read the screen.
    Denied,
};

} // namespace tintwick
