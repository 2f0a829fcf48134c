#include "RunningInstance.h"

#include "InstanceNames.h"

#include <QDBusConnectionInterface>
#include <QUrl>
#include <QVariantMap>

#include <limits>

namespace tintwick {

namespace {

using namespace Qt::StringLiterals;

QString applicationInterface()
{
    return u"org.freedesktop.Application"_s;
}

/// What the launcher of this process has given to it, so that a window of the other one may take the keyboard.
QVariantMap platformData()
{
    QVariantMap data;
    if (const QString token = qEnvironmentVariable("XDG_ACTIVATION_TOKEN"); !token.isEmpty()) {
        data.insert(u"activation-token"_s, token);
    }
    if (const QString id = qEnvironmentVariable("DESKTOP_STARTUP_ID"); !id.isEmpty()) {
        data.insert(u"desktop-startup-id"_s, id);
    }
    return data;
}

bool isAnswered(const QDBusMessage& reply)
{
    return reply.type() == QDBusMessage::ReplyMessage;
}

bool hasNoReceiver(const QDBusMessage& reply)
{
    return reply.errorName() == "org.freedesktop.DBus.Error.NameHasNoOwner"_L1 ||
           reply.errorName() == "org.freedesktop.DBus.Error.ServiceUnknown"_L1;
}

PickAnswer::Outcome outcomeOf(const QString& word)
{
    if (word == "picked"_L1) {
        return PickAnswer::Outcome::Picked;
    }
    return word == "cancelled"_L1 ? PickAnswer::Outcome::Cancelled : PickAnswer::Outcome::Failed;
}

} // namespace

RunningInstance::RunningInstance()
    : m_bus(QDBusConnection::sessionBus())
{
}

bool RunningInstance::isThere() const
{
    return m_bus.isConnected() && m_bus.interface()->isServiceRegistered(instanceService());
}

bool RunningInstance::activate(Start start) const
{
    QDBusMessage message = call(applicationInterface(), u"Activate"_s, start);
    message << platformData();
    return isAnswered(m_bus.call(message));
}

bool RunningInstance::activateAction(const QString& name, Start start) const
{
    QDBusMessage message = call(applicationInterface(), u"ActivateAction"_s, start);
    message << name << QVariantList() << platformData();
    return isAnswered(m_bus.call(message));
}

bool RunningInstance::open(const QStringList& paths) const
{
    QStringList addresses;
    for (const QString& path : paths) {
        addresses.append(QUrl::fromLocalFile(path).toString(QUrl::FullyEncoded));
    }
    QDBusMessage message = call(applicationInterface(), u"Open"_s, Start::Never);
    message << addresses << platformData();
    return isAnswered(m_bus.call(message));
}

std::optional<PickAnswer> RunningInstance::pick(const PickRequest& request) const
{
    QDBusMessage message = call(instanceInterface(), u"Pick"_s, Start::Never);
    message << request.count << request.format << request.copies << request.saves;
    // The user may take any time.
    const QDBusMessage reply = m_bus.call(message, QDBus::Block, std::numeric_limits<int>::max());
    if (!m_bus.isConnected() || hasNoReceiver(reply)) {
        return std::nullopt;
    }

    const QVariantList values = reply.arguments();
    constexpr qsizetype expected = 4;
    if (!isAnswered(reply) || values.size() != expected) {
        return PickAnswer{PickAnswer::Outcome::Failed, {}, {}, u"Tintwick ended during the pick."_s};
    }
    return PickAnswer{outcomeOf(values[0].toString()), qdbus_cast<QList<uint>>(values[1]),
                      values[2].toStringList(), values[3].toString()};
}

QDBusMessage RunningInstance::call(const QString& interface, const QString& method, Start start) const
{
    QDBusMessage message =
        QDBusMessage::createMethodCall(instanceService(), instancePath(), interface, method);
    message.setAutoStartService(start == Start::IfNeeded);
    return message;
}

} // namespace tintwick
