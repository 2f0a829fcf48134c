#pragma once

#include <QString>

namespace tintwick {

// The names of the running program on the session bus.

inline QString instanceService()
{
    return QStringLiteral("org.tintwick.Tintwick");
}

inline QString instancePath()
{
    return QStringLiteral("/org/tintwick/Tintwick");
}

/// Our own interface, for what org.freedesktop.Application does not offer.
inline QString instanceInterface()
{
    return QStringLiteral("org.tintwick.Tintwick");
}

} // namespace tintwick
