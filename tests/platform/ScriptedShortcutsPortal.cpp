#include "platform/ScriptedShortcutsPortal.h"

#include <QDBusArgument>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusObjectPath>
#include <QDBusVariant>

#include <algorithm>
#include <iterator>
#include <utility>

namespace tintwick::test {

using namespace Qt::StringLiterals;

namespace {

const QString portalPath = u"/org/freedesktop/portal/desktop"_s;
const QString shortcutsInterface = u"org.freedesktop.portal.GlobalShortcuts"_s;

/// (sa{sv})
struct Item
{
    QString id;
    QVariantMap properties;
};

QDBusArgument& operator<<(QDBusArgument& argument, const Item& item)
{
    argument.beginStructure();
    argument << item.id << item.properties;
    argument.endStructure();
    return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, Item& item)
{
    argument.beginStructure();
    argument >> item.id >> item.properties;
    argument.endStructure();
    return argument;
}

QList<Item> itemsIn(const QVariant& argument)
{
    return qdbus_cast<QList<Item>>(argument);
}

QString journalOf(const QList<Item>& items)
{
    QString text;
    for (const Item& item : items) {
        text += u" %1 [%2] [%3]"_s.arg(item.id, item.properties.value(u"description"_s).toString(),
                                       item.properties.value(u"preferred_trigger"_s).toString());
    }
    return text;
}

QVariant withKeys(const QMap<QString, QString>& keys)
{
    QList<Item> items;
    for (auto each = keys.cbegin(); each != keys.cend(); ++each) {
        items.append({each.key(), {{u"trigger_description"_s, each.value()}}});
    }
    return QVariant::fromValue(items);
}

} // namespace

ScriptedShortcutsPortal::ScriptedShortcutsPortal(QDBusConnection bus)
    : m_bus(std::move(bus))
{
    qDBusRegisterMetaType<Item>();
    qDBusRegisterMetaType<QList<Item>>();
    m_bus.registerVirtualObject(portalPath, this, QDBusConnection::SubPath);
}

void ScriptedShortcutsPortal::sendKey(const QString& signal, const QString& ofSession, const QString& id)
{
    QDBusMessage message = QDBusMessage::createSignal(portalPath, shortcutsInterface, signal);
    message << QVariant::fromValue(QDBusObjectPath(ofSession)) << id << qulonglong{1} << QVariantMap();
    m_bus.send(message);
}

void ScriptedShortcutsPortal::change(const QString& id, const QString& newKeys)
{
    QDBusMessage message = QDBusMessage::createSignal(portalPath, shortcutsInterface, u"ShortcutsChanged"_s);
    message << QVariant::fromValue(QDBusObjectPath(session)) << withKeys({{id, newKeys}});
    m_bus.send(message);
}

void ScriptedShortcutsPortal::closeSession()
{
    QDBusMessage message =
        QDBusMessage::createSignal(session, u"org.freedesktop.portal.Session"_s, u"Closed"_s);
    message << QVariantMap();
    m_bus.send(message);
}

bool ScriptedShortcutsPortal::handleMessage(const QDBusMessage& message, const QDBusConnection&)
{
    ++calls;
    if (!replies) {
        message.setDelayedReply(true);
        return true;
    }
    const QString method = message.member();
    if (method == u"Register" && hasRegistry) {
        registerProgram(message);
        return true;
    }
    const bool isOfShortcuts = message.interface() == shortcutsInterface ||
                               (method == u"Get" && message.arguments().value(0) == shortcutsInterface);
    m_wasCalled = true;
    if (method == u"Close") {
        journal << u"Close "_s + message.path().section(u'/', -2);
        reply(message);
        return true;
    }
    constexpr struct
    {
        QLatin1StringView name;
        void (ScriptedShortcutsPortal::*handle)(const QDBusMessage& call) = nullptr;
    } methods[] = {
        {"Get"_L1, &ScriptedShortcutsPortal::tellVersion},
        {"CreateSession"_L1, &ScriptedShortcutsPortal::createSession},
        {"ListShortcuts"_L1, &ScriptedShortcutsPortal::listShortcuts},
        {"BindShortcuts"_L1, &ScriptedShortcutsPortal::bindShortcuts},
        {"ConfigureShortcuts"_L1, &ScriptedShortcutsPortal::configureShortcuts},
    };
    const auto* const found = std::ranges::find(methods, method, [](const auto& row) { return row.name; });
    if (found == std::end(methods) || !isOfShortcuts || !hasShortcuts) {
        return false;
    }
    (this->*found->handle)(message);
    return true;
}

void ScriptedShortcutsPortal::registerProgram(const QDBusMessage& call)
{
    journal << u"Register "_s + call.arguments().at(0).toString();
    if (m_wasCalled) {
        refuse(call, u"The connection has an application id already"_s);
        return;
    }
    m_applicationId = call.arguments().at(0).toString();
    reply(call);
}

void ScriptedShortcutsPortal::tellVersion(const QDBusMessage& call)
{
    reply(call, {QVariant::fromValue(QDBusVariant(version))});
}

void ScriptedShortcutsPortal::createSession(const QDBusMessage& call)
{
    const auto options = qdbus_cast<QVariantMap>(call.arguments().at(0));
    const QList<Item> items = itemsIn(options.value(u"shortcuts"_s));
    journal << u"CreateSession"_s + journalOf(items);
    if (needsApplicationId && m_applicationId.isEmpty()) {
        refuse(call, u"An application id is needed"_s);
        return;
    }
    session = u"%1/session/%2/%3"_s.arg(portalPath)
                  .arg(++m_sessions)
                  .arg(options.value(u"session_handle_token"_s).toString());
    m_isBound = false;
    m_idsOfSession.clear();
    for (const Item& item : items) {
        m_idsOfSession.append(item.id);
    }
    QVariantMap results{{u"session_handle"_s, session}};
    if (bindsOfSessionOnly) {
        results.insert(u"shortcuts"_s, withKeys(keysOf(m_idsOfSession)));
    }
    respond(call, options, Answer::Success, results);
}

QMap<QString, QString> ScriptedShortcutsPortal::keysOf(const QStringList& ids) const
{
    QMap<QString, QString> found;
    for (const QString& id : ids) {
        found.insert(id, keys.value(id));
    }
    return found;
}

void ScriptedShortcutsPortal::listShortcuts(const QDBusMessage& call)
{
    journal << u"ListShortcuts"_s;
    respond(call, qdbus_cast<QVariantMap>(call.arguments().at(1)), Answer::Success,
            listsShortcuts ? QVariantMap{{u"shortcuts"_s, withKeys(knownKeys)}} : QVariantMap());
}

void ScriptedShortcutsPortal::bindShortcuts(const QDBusMessage& call)
{
    const QList<Item> items = itemsIn(call.arguments().at(1));
    journal << u"BindShortcuts %1%2"_s.arg(call.arguments().at(2).toString(), journalOf(items));
    const bool isDescribed = std::all_of(items.begin(), items.end(), [](const Item& item) {
        return !item.properties.value(u"description"_s).toString().isEmpty();
    });
    if (std::exchange(m_isBound, true) || items.isEmpty() || (needsDescriptions && !isDescribed)) {
        refuse(call, u"Refused"_s);
        return;
    }
    QStringList ids;
    for (const Item& item : items) {
        if (!bindsOfSessionOnly || m_idsOfSession.contains(item.id)) {
            ids.append(item.id);
        }
    }
    const QMap<QString, QString> bound = keysOf(ids);
    respond(call, qdbus_cast<QVariantMap>(call.arguments().at(3)), answer,
            answer == Answer::Success ? QVariantMap{{u"shortcuts"_s, withKeys(bound)}} : QVariantMap());
}

void ScriptedShortcutsPortal::configureShortcuts(const QDBusMessage& call)
{
    journal << u"ConfigureShortcuts "_s + call.arguments().at(1).toString();
    if (canConfigure) {
        reply(call);
    } else {
        refuse(call, u"The desktop cannot"_s);
    }
}

void ScriptedShortcutsPortal::reply(const QDBusMessage& call, const QVariantList& values)
{
    m_bus.send(call.createReply(values));
}

void ScriptedShortcutsPortal::refuse(const QDBusMessage& call, const QString& reason)
{
    m_bus.send(call.createErrorReply(u"org.freedesktop.portal.Error.NotAllowed"_s, reason));
}

void ScriptedShortcutsPortal::respond(const QDBusMessage& call, const QVariantMap& options, Answer how,
                                      const QVariantMap& results)
{
    const QString sender = call.service().mid(1).replace(u'.', u'_');
    const QString path =
        u"%1/request/%2/%3"_s.arg(portalPath, sender, options.value(u"handle_token"_s).toString());
    reply(call, {QVariant::fromValue(QDBusObjectPath(path))});
    QDBusMessage message =
        QDBusMessage::createSignal(path, u"org.freedesktop.portal.Request"_s, u"Response"_s);
    message << static_cast<unsigned>(how) << results;
    m_bus.send(message);
}

} // namespace tintwick::test
