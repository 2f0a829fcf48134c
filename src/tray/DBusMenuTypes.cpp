#include "DBusMenuTypes.h"

#include <QDBusArgument>
#include <QDBusMetaType>
#include <QDBusVariant>

namespace tintwick {

QDBusArgument& operator<<(QDBusArgument& argument, const DBusMenuProperties& entry)
{
    argument.beginStructure();
    argument << entry.id << entry.properties;
    argument.endStructure();
    return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, DBusMenuProperties& entry)
{
    argument.beginStructure();
    argument >> entry.id >> entry.properties;
    argument.endStructure();
    return argument;
}

QDBusArgument& operator<<(QDBusArgument& argument, const DBusMenuLayout& entry)
{
    argument.beginStructure();
    argument << entry.id << entry.properties;
    argument.beginArray(QMetaType::fromType<QDBusVariant>());
    for (const DBusMenuLayout& child : entry.children) {
        argument << QDBusVariant(QVariant::fromValue(child));
    }
    argument.endArray();
    argument.endStructure();
    return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, DBusMenuLayout& entry)
{
    argument.beginStructure();
    argument >> entry.id >> entry.properties;
    argument.beginArray();
    entry.children.clear();
    while (!argument.atEnd()) {
        QDBusVariant child;
        argument >> child;
        entry.children.append(qdbus_cast<DBusMenuLayout>(child.variant()));
    }
    argument.endArray();
    argument.endStructure();
    return argument;
}

QDBusArgument& operator<<(QDBusArgument& argument, const DBusMenuEvent& event)
{
    argument.beginStructure();
    argument << event.id << event.type << QDBusVariant(event.data) << event.time;
    argument.endStructure();
    return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, DBusMenuEvent& event)
{
    QDBusVariant data;
    argument.beginStructure();
    argument >> event.id >> event.type >> data >> event.time;
    argument.endStructure();
    event.data = data.variant();
    return argument;
}

void registerDBusMenuTypes()
{
    qDBusRegisterMetaType<DBusMenuProperties>();
    qDBusRegisterMetaType<QList<DBusMenuProperties>>();
    qDBusRegisterMetaType<DBusMenuLayout>();
    qDBusRegisterMetaType<DBusMenuEvent>();
    qDBusRegisterMetaType<QList<DBusMenuEvent>>();
    // Of the property "shortcut".
    qDBusRegisterMetaType<QList<QStringList>>();
}

} // namespace tintwick
