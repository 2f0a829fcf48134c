#pragma once

#include <QString>

namespace tintwick {

/// The kind of a saved file.
struct ContentType
{
    /// The name in a save dialog.
    QString name;
    /// Without the dot.
    QString suffix;
};

} // namespace tintwick
