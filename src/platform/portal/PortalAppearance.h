#pragma once

#include "platform/SystemAppearance.h"

#include <QMap>
#include <QObject>
#include <QString>
#include <QVariantMap>

class QDBusPendingCallWatcher;
class QDBusVariant;

namespace tintwick {

/// Asks the desktop portal (org.freedesktop.portal.Settings) on the session bus.
class PortalAppearance final : public QObject, public SystemAppearance
{
    Q_OBJECT

public:
    PortalAppearance();
    ~PortalAppearance() override;

    void follow(Changed changed) override;
    [[nodiscard]] Scheme scheme() const override { return m_scheme; }
    [[nodiscard]] bool reducesMotion() const override { return m_reducesMotion; }

private Q_SLOTS:
    void settingChanged(const QString& group, const QString& key, const QDBusVariant& value);

private:
    void readAllFinished(QDBusPendingCallWatcher* call);
    /// True when the setting is one of ours and says something new.
    bool take(const QString& group, const QString& key, const QVariant& value);

    Changed m_changed;
    Scheme m_scheme = Scheme::Unknown;
    bool m_reducesMotion = false;
};

} // namespace tintwick
