#pragma once

#include <QObject>
#include <QString>

namespace tintwick {

/// Shows notifications of the desktop over D-Bus (org.freedesktop.Notifications).
class Notifier final : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    /// Returns at once. The notification replaces the previous one of this object if that is still shown.
    void notify(const QString& summary, const QString& body);

Q_SIGNALS:
    /// The session has no notification service, or it did not accept the notification.
    void unavailable(const QString& summary, const QString& body);

private:
    /// Given by the service; 0 before the first notification.
    uint m_lastId = 0;
};

} // namespace tintwick
