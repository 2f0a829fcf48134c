#include "support/NotifierHost.h"

#include "DBusMenuTypes.h"
#include "support/WaitUntil.h"

#include <QCoreApplication>
#include <QDBusArgument>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusVariant>

namespace tintwick {

namespace {

using namespace Qt::StringLiterals;

constexpr auto itemPath = "/StatusNotifierItem"_L1;
constexpr auto itemInterface = "org.kde.StatusNotifierItem"_L1;

} // namespace

NotifierHost::NotifierHost(const QString& busAddress)
    : m_bus(QDBusConnection::connectToBus(busAddress, u"notifier host"_s))
{
    m_bus.registerObject(u"/StatusNotifierWatcher"_s, this,
                         QDBusConnection::ExportAllSlots | QDBusConnection::ExportAllProperties);
    m_bus.registerService(u"org.kde.StatusNotifierWatcher"_s);
}

NotifierHost::~NotifierHost()
{
    QDBusConnection::disconnectFromBus(u"notifier host"_s);
}

bool NotifierHost::waitForItem() const
{
    return waitUntil([this] {
        QCoreApplication::processEvents();
        return !m_items.isEmpty();
    });
}

QDBusMessage NotifierHost::itemCall(const QString& method) const
{
    return QDBusMessage::createMethodCall(m_items.last(), itemPath, itemInterface, method);
}

bool NotifierHost::activate(QPoint position) const
{
    QDBusMessage click = itemCall(u"Activate"_s);
    click << position.x() << position.y();
    return m_bus.call(click).type() == QDBusMessage::ReplyMessage;
}

bool NotifierHost::requestMenu() const
{
    QDBusMessage request = itemCall(u"ContextMenu"_s);
    request << 0 << 0;
    return m_bus.call(request).type() == QDBusMessage::ReplyMessage;
}

QStringList NotifierHost::menu() const
{
    QStringList titles;
    for (const DBusMenuLayout& entry : layout().children) {
        titles.append(entry.properties.value(u"label"_s).toString());
    }
    return titles;
}

void NotifierHost::choose(const QString& title) const
{
    QDBusMessage event = menuCall(u"Event"_s);
    for (const DBusMenuLayout& entry : layout().children) {
        if (entry.properties.value(u"label"_s) == title) {
            event << entry.id << u"clicked"_s << QVariant::fromValue(QDBusVariant(0)) << 0U;
        }
    }
    m_bus.call(event);
}

QVariant NotifierHost::property(const QString& name) const
{
    QDBusMessage request = QDBusMessage::createMethodCall(m_items.last(), itemPath,
                                                          u"org.freedesktop.DBus.Properties"_s, u"Get"_s);
    request << itemInterface << name;
    return m_bus.call(request).arguments().value(0).value<QDBusVariant>().variant();
}

QDBusMessage NotifierHost::menuCall(const QString& method) const
{
    return QDBusMessage::createMethodCall(m_items.last(), property(u"Menu"_s).value<QDBusObjectPath>().path(),
                                          u"com.canonical.dbusmenu"_s, method);
}

DBusMenuLayout NotifierHost::layout() const
{
    QDBusMessage call = menuCall(u"GetLayout"_s);
    call << 0 << -1 << QStringList();
    return qdbus_cast<DBusMenuLayout>(m_bus.call(call).arguments().value(1));
}

} // namespace tintwick
