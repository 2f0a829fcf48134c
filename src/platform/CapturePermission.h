#pragma once

#include <QUrl>

namespace tintwick {

/// Whether the desktop lets this process read the screen.
struct CapturePermission
{
    bool isGranted = true;
    /// Where the user changes that; empty where the desktop has no such place.
    QUrl settings;
};

} // namespace tintwick
