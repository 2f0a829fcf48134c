#include "DesktopSettings.h"

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusVariant>
#include <QMap>
#include <QStringList>

namespace tintwick {

namespace {

using namespace Qt::StringLiterals;

const QString service = u"org.freedesktop.portal.Desktop"_s;
const QString path = u"/org/freedesktop/portal/desktop"_s;
const QString interface = u"org.freedesktop.portal.Settings"_s;

const QString appearanceSpace = u"org.freedesktop.appearance"_s;
const QString gnomeSpace = u"org.gnome.desktop.interface"_s;
const QString kdeSpace = u"org.kde.kdeglobals.KDE"_s;

enum PortalColorScheme : unsigned { NoPreference = 0, PreferDark = 1, PreferLight = 2 };

} // namespace

DesktopSettings::DesktopSettings(QObject* parent)
    : QObject(parent)
{
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) {
        return;
    }
    // The whole message: Qt 6.4 does not call a slot that asks for a QDBusVariant among its arguments here.
    bus.connect(service, path, interface, u"SettingChanged"_s, this, SLOT(settingChanged(QDBusMessage)));
    QDBusMessage question = QDBusMessage::createMethodCall(service, path, interface, u"ReadAll"_s);
    question << QStringList{appearanceSpace, gnomeSpace, kdeSpace};
    auto* call = new QDBusPendingCallWatcher(bus.asyncCall(question), this);
    connect(call, &QDBusPendingCallWatcher::finished, this, &DesktopSettings::takeAll);
}

bool DesktopSettings::prefersReducedMotion() const
{
    return m_reducedMotion || m_animationsDisabled || m_animationsTakeNoTime;
}

void DesktopSettings::take(const QString& space, const QString& key, const QVariant& value)
{
    const std::optional<bool> darkBefore = m_prefersDark;
    const bool motionBefore = prefersReducedMotion();
    if (space == appearanceSpace && key == "color-scheme"_L1) {
        const unsigned scheme = value.toUInt();
        m_prefersDark = scheme == PreferDark    ? std::optional(true)
                        : scheme == PreferLight ? std::optional(false)
                                                : std::nullopt;
    } else if (space == appearanceSpace && key == "reduced-motion"_L1) {
        m_reducedMotion = value.toUInt() == 1;
    } else if (space == gnomeSpace && key == "enable-animations"_L1) {
        m_animationsDisabled = !value.toBool();
    } else if (space == kdeSpace && key == "AnimationDurationFactor"_L1) {
        bool isNumber = false;
        m_animationsTakeNoTime = value.toString().toDouble(&isNumber) <= 0 && isNumber;
    }
    if (m_prefersDark != darkBefore || prefersReducedMotion() != motionBefore) {
        Q_EMIT changed();
    }
}

void DesktopSettings::settingChanged(const QDBusMessage& message)
{
    const QVariantList arguments = message.arguments();
    if (message.signature() == "ssv"_L1) {
        take(arguments.at(0).toString(), arguments.at(1).toString(),
             arguments.at(2).value<QDBusVariant>().variant());
    }
}

void DesktopSettings::takeAll(QDBusPendingCallWatcher* call)
{
    call->deleteLater();
    // a{sa{sv}}
    const QDBusMessage answer = call->reply();
    if (answer.type() != QDBusMessage::ReplyMessage || answer.arguments().isEmpty()) {
        return;
    }
    const auto spaces =
        qdbus_cast<QMap<QString, QVariantMap>>(answer.arguments().constFirst().value<QDBusArgument>());
    for (auto space = spaces.cbegin(); space != spaces.cend(); ++space) {
        for (auto setting = space->cbegin(); setting != space->cend(); ++setting) {
            take(space.key(), setting.key(), setting.value());
        }
    }
}

} // namespace tintwick
