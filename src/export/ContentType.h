#pragma once

#include <QString>

namespace tintwick {

/// What kind of file is saved.
struct ContentType
{
    /// As a save dialog shows it.
    QString name;
    /// Of a file of this kind, without the dot.
    QString suffix;
};

} // namespace tintwick
