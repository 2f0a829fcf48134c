#pragma once

#include <QLatin1StringView>

/// The service that offers the portals of the desktop, and the object that has them all.
namespace tintwick::portal {

inline constexpr QLatin1StringView service("org.freedesktop.portal.Desktop");
inline constexpr QLatin1StringView path("/org/freedesktop/portal/desktop");

} // namespace tintwick::portal
