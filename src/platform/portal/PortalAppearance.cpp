#include "platform/portal/PortalAppearance.h"

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusVariant>
#include <QStringList>

#include <utility>

namespace tintwick {

namespace {

using namespace Qt::StringLiterals;

using Groups = QMap<QString, QVariantMap>;

const auto service = u"org.freedesktop.portal.Desktop"_s;
const auto path = u"/org/freedesktop/portal/desktop"_s;
const auto interface = u"org.freedesktop.portal.Settings"_s;

const auto appearanceGroup = u"org.freedesktop.appearance"_s;
const auto desktopInterfaceGroup = u"org.gnome.desktop.interface"_s;

// The numbers of the portal's "color-scheme".
constexpr uint prefersDark = 1;
constexpr uint prefersLight = 2;

SystemAppearance::Scheme toScheme(const QVariant& value)
{
    switch (value.toUInt()) {
    case prefersDark:
        return SystemAppearance::Scheme::Dark;
    case prefersLight:
        return SystemAppearance::Scheme::Light;
    default:
        return SystemAppearance::Scheme::Unknown;
    }
}

} // namespace

PortalAppearance::PortalAppearance() = default;
PortalAppearance::~PortalAppearance() = default;

void PortalAppearance::follow(Changed changed)
{
    m_changed = std::move(changed);
    qDBusRegisterMetaType<Groups>();
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) {
        return;
    }
    bus.connect(service, path, interface, u"SettingChanged"_s, this,
                SLOT(settingChanged(QString, QString, QDBusVariant)));
    QDBusMessage readAll = QDBusMessage::createMethodCall(service, path, interface, u"ReadAll"_s);
    readAll << QStringList{appearanceGroup, desktopInterfaceGroup};
    const auto* call = new QDBusPendingCallWatcher(bus.asyncCall(readAll), this);
    connect(call, &QDBusPendingCallWatcher::finished, this, &PortalAppearance::readAllFinished);
}

void PortalAppearance::readAllFinished(QDBusPendingCallWatcher* call)
{
    call->deleteLater();
    const QDBusPendingReply<Groups> reply = *call;
    if (reply.isError()) {
        return;
    }
    bool isNew = false;
    const Groups groups = reply.value();
    for (auto group = groups.begin(); group != groups.end(); ++group) {
        for (auto setting = group->begin(); setting != group->end(); ++setting) {
            isNew = take(group.key(), setting.key(), setting.value()) || isNew;
        }
    }
    if (isNew) {
        m_changed();
    }
}

void PortalAppearance::settingChanged(const QString& group, const QString& key, const QDBusVariant& value)
{
    if (take(group, key, value.variant())) {
        m_changed();
    }
}

bool PortalAppearance::take(const QString& group, const QString& key, const QVariant& value)
{
    if (group == appearanceGroup && key == "color-scheme"_L1) {
        const Scheme scheme = toScheme(value);
        return std::exchange(m_scheme, scheme) != scheme;
    }
    if (group == desktopInterfaceGroup && key == "enable-animations"_L1) {
        const bool reducesMotion = !value.toBool();
        return std::exchange(m_reducesMotion, reducesMotion) != reducesMotion;
    }
    return false;
}

} // namespace tintwick
