#pragma once

#include <QObject>
#include <QString>
#include <QVariant>

#include <optional>

class QDBusMessage;
class QDBusPendingCallWatcher;

namespace tintwick {

/// What the desktop wishes of the look of its programs, from the settings that its portal (org.freedesktop.portal.Settings)
/// makes known, and live. Without a portal, or until it has answered, it wishes nothing.
class DesktopSettings final : public QObject
{
    Q_OBJECT

public:
    /// Asks the portal; the answer arrives later, and `changed()` with it.
    explicit DesktopSettings(QObject* parent = nullptr);

    /// Nothing where the desktop has no preference or does not tell.
    [[nodiscard]] std::optional<bool> prefersDark() const { return m_prefersDark; }
    [[nodiscard]] bool prefersReducedMotion() const;

    /// Takes in one setting, as the portal names and types it; unknown ones change nothing.
    void take(const QString& space, const QString& key, const QVariant& value);

Q_SIGNALS:
    void changed();

private Q_SLOTS:
    void settingChanged(const QDBusMessage& message);

private:
    void takeAll(QDBusPendingCallWatcher* call);

    std::optional<bool> m_prefersDark;
    bool m_reducedMotion = false;
    bool m_animationsDisabled = false;
    bool m_animationsTakeNoTime = false;
};

} // namespace tintwick
