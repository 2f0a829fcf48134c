#pragma once

#include <QList>
#include <QMetaType>
#include <QString>
#include <QVariant>
#include <QVariantMap>

class QDBusArgument;

namespace tintwick {

// Arguments of com.canonical.dbusmenu.

/// (ia{sv}): an entry of a menu without its children.
struct DBusMenuProperties
{
    int id = 0;
    QVariantMap properties;
};

/// (ia{sv}av): an entry of a menu with its children.
struct DBusMenuLayout
{
    int id = 0;
    QVariantMap properties;
    QList<DBusMenuLayout> children;
};

/// (isvu): something that happened to an entry.
struct DBusMenuEvent
{
    int id = 0;
    QString type;
    QVariant data;
    uint time = 0;
};

QDBusArgument& operator<<(QDBusArgument& argument, const DBusMenuProperties& entry);
const QDBusArgument& operator>>(const QDBusArgument& argument, DBusMenuProperties& entry);
QDBusArgument& operator<<(QDBusArgument& argument, const DBusMenuLayout& entry);
const QDBusArgument& operator>>(const QDBusArgument& argument, DBusMenuLayout& entry);
QDBusArgument& operator<<(QDBusArgument& argument, const DBusMenuEvent& event);
const QDBusArgument& operator>>(const QDBusArgument& argument, DBusMenuEvent& event);

/// Call before one of the types is sent or received.
void registerDBusMenuTypes();

} // namespace tintwick

Q_DECLARE_METATYPE(tintwick::DBusMenuProperties)
Q_DECLARE_METATYPE(tintwick::DBusMenuLayout)
Q_DECLARE_METATYPE(tintwick::DBusMenuEvent)
