#pragma once

#include <functional>

namespace tintwick {

/// Whether this process may read the screen.
struct CapturePermission
{
    bool isGranted = true;
    /// Opens the place where the user changes the permission; null where the desktop has none.
    std::function<void()> openSettings;
};

} // namespace tintwick
