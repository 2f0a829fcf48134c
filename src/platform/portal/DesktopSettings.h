#pragma once

#include <QObject>
#include <QString>
#include <QVariant>

#include <optional>

class QDBusMessage;
class QDBusPendingCallWatcher;

namespace tintwick {

/// The desktop's preferences for the look of programs, from the portal org.freedesktop.portal.Settings, which also
/// reports changes. There are no preferences without a portal and until it has answered.
class DesktopSettings final : public QObject
{
    Q_OBJECT

public:
    /// Asks the portal; changed() follows when the answer has arrived.
    explicit DesktopSettings(QObject* parent = nullptr);

    /// None where the desktop has no preference or reports none.
    [[nodiscard]] std::optional<bool> prefersDark() const { return m_prefersDark; }
    [[nodiscard]] bool prefersReducedMotion() const;
    [[nodiscard]] bool prefersHighContrast() const { return m_highContrast || m_gnomeHighContrast; }

    /// Takes one setting, with the portal's names and type. An unknown setting changes nothing.
    void take(const QString& space, const QString& key, const QVariant& value);

Q_SIGNALS:
    void changed();

private Q_SLOTS:
    void takeChange(const QDBusMessage& message);

private:
    void askPortal();
    void takeAll(QDBusPendingCallWatcher* call);

    std::optional<bool> m_prefersDark;
    bool m_reducedMotion = false;
    bool m_animationsDisabled = false;
    bool m_animationsTakeNoTime = false;
    bool m_highContrast = false;
    bool m_gnomeHighContrast = false;
};

} // namespace tintwick
