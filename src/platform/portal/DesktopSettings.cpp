#include "DesktopSettings.h"

#include "Portal.h"
#include "PortalAccess.h"
#include "PortalTypes.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusVariant>
#include <QStringList>

namespace tintwick {

namespace {

using namespace Qt::StringLiterals;

const QString settingsInterface = u"org.freedesktop.portal.Settings"_s;

const QString appearanceSpace = u"org.freedesktop.appearance"_s;
const QString gnomeSpace = u"org.gnome.desktop.interface"_s;
const QString gnomeAccessibilitySpace = u"org.gnome.desktop.a11y.interface"_s;
const QString kdeSpace = u"org.kde.kdeglobals.KDE"_s;

enum PortalColorScheme : unsigned { NoPreference = 0, PreferDark = 1, PreferLight = 2 };

} // namespace

DesktopSettings::DesktopSettings(QObject* parent)
    : QObject(parent)
{
    if (!QDBusConnection::sessionBus().isConnected()) {
        return;
    }
    askPortals(*this, [this](bool works) {
        if (works) {
            askPortal();
        }
    });
}

void DesktopSettings::askPortal()
{
    qDBusRegisterMetaType<SettingsByNamespace>();
    QDBusConnection bus = QDBusConnection::sessionBus();
    bus.connect({}, portal::path, settingsInterface, u"SettingChanged"_s, this,
                SLOT(takeChange(QDBusMessage)));
    const QDBusMessage question =
        portal::call(settingsInterface, u"ReadAll"_s)
        << QStringList{appearanceSpace, gnomeSpace, gnomeAccessibilitySpace, kdeSpace};
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
    const bool contrastBefore = prefersHighContrast();
    if (space == appearanceSpace && key == "color-scheme"_L1) {
        const unsigned scheme = value.toUInt();
        m_prefersDark = scheme == PreferDark    ? std::optional(true)
                        : scheme == PreferLight ? std::optional(false)
                                                : std::nullopt;
    } else if (space == appearanceSpace && key == "reduced-motion"_L1) {
        m_reducedMotion = value.toUInt() == 1;
    } else if (space == appearanceSpace && key == "contrast"_L1) {
        m_highContrast = value.toUInt() == 1;
    } else if (space == gnomeAccessibilitySpace && key == "high-contrast"_L1) {
        m_gnomeHighContrast = value.toBool();
    } else if (space == gnomeSpace && key == "enable-animations"_L1) {
        m_animationsDisabled = !value.toBool();
    } else if (space == kdeSpace && key == "AnimationDurationFactor"_L1) {
        bool isNumber = false;
        m_animationsTakeNoTime = value.toString().toDouble(&isNumber) <= 0 && isNumber;
    }
    if (m_prefersDark != darkBefore || prefersReducedMotion() != motionBefore ||
        prefersHighContrast() != contrastBefore) {
        Q_EMIT changed();
    }
}

void DesktopSettings::takeChange(const QDBusMessage& message)
{
    if (message.signature() == "ssv"_L1) {
        const QVariantList arguments = message.arguments();
        take(arguments.at(0).toString(), arguments.at(1).toString(),
             arguments.at(2).value<QDBusVariant>().variant());
    }
}

void DesktopSettings::takeAll(QDBusPendingCallWatcher* call)
{
    call->deleteLater();
    const QDBusPendingReply<SettingsByNamespace> reply = *call;
    if (reply.isError()) {
        return;
    }
    const SettingsByNamespace spaces = reply.value();
    for (auto space = spaces.cbegin(); space != spaces.cend(); ++space) {
        for (auto setting = space->cbegin(); setting != space->cend(); ++setting) {
            take(space.key(), setting.key(), setting.value());
        }
    }
}

} // namespace tintwick
