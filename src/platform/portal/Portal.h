#pragma once

#include <QDBusMessage>
#include <QLatin1StringView>
#include <QString>

/// The service that offers the portals of the desktop, and the object that has them all.
namespace tintwick::portal {

inline constexpr QLatin1StringView service("org.freedesktop.portal.Desktop");
inline constexpr QLatin1StringView path("/org/freedesktop/portal/desktop");

/// A call of one of the portals. Messages are sent without a proxy, whose constructor looks up the owner of the service and
/// blocks until the bus answers. For the same reason signals are matched without the name of the service.
[[nodiscard]] inline QDBusMessage call(const QString& interface, const QString& method)
{
    return QDBusMessage::createMethodCall(service, path, interface, method);
}

} // namespace tintwick::portal
