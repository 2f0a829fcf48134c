#pragma once

#include <QUrl>

namespace tintwick {

/// Whether this process may read the screen.
struct CapturePermission
{
    bool isGranted = true;
    /// The place where the user changes the permission; empty where the desktop has none.
    QUrl settings;
};

} // namespace tintwick
