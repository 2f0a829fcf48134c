#include "ShortcutSession.h"

#include "Portal.h"
#include "PortalAccess.h"
#include "PortalRequest.h"

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusError>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusObjectPath>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusVariant>

#include <algorithm>
#include <chrono>
#include <functional>
#include <utility>

namespace tintwick {

namespace {

using namespace Qt::StringLiterals;

const QString shortcutsInterface = u"org.freedesktop.portal.GlobalShortcuts"_s;
const QString sessionInterface = u"org.freedesktop.portal.Session"_s;

/// The desktop may be starting, so its bus has time.
constexpr std::chrono::seconds patience{25};
constexpr unsigned versionWithConfigure = 2;
/// KDE 5.27 keeps the keys by this name when the program has no application id.
const QString sessionToken = u"tintwick"_s;

/// (sa{sv})
struct PortalShortcut
{
    QString id;
    QVariantMap properties;
};

QDBusArgument& operator<<(QDBusArgument& argument, const PortalShortcut& shortcut)
{
    argument.beginStructure();
    argument << shortcut.id << shortcut.properties;
    argument.endStructure();
    return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, PortalShortcut& shortcut)
{
    argument.beginStructure();
    argument >> shortcut.id >> shortcut.properties;
    argument.endStructure();
    return argument;
}

QVariant shortcutsFor(const QList<ShortcutSession::Request>& requests)
{
    QList<PortalShortcut> shortcuts;
    for (const ShortcutSession::Request& request : requests) {
        QVariantMap properties{{u"description"_s, request.description}};
        if (!request.preferredTrigger.isEmpty()) {
            properties.insert(u"preferred_trigger"_s, request.preferredTrigger);
        }
        shortcuts.append({request.id, properties});
    }
    return QVariant::fromValue(shortcuts);
}

ShortcutSession::Triggers triggersIn(const QVariant& list)
{
    ShortcutSession::Triggers triggers;
    for (const PortalShortcut& shortcut : qdbus_cast<QList<PortalShortcut>>(list)) {
        triggers.insert(shortcut.id, shortcut.properties.value(u"trigger_description"_s).toString());
    }
    return triggers;
}

QDBusMessage shortcutsCall(const QString& method)
{
    return portal::call(shortcutsInterface, method);
}

/// A request that passes its answer on; a failure is an answer without success.
class Question final : public PortalRequest
{
public:
    using Then = std::function<void(bool isSuccess, const QVariantMap& results)>;

    Question(QObject& session, const Call& message, Then then)
        : PortalRequest(&session)
        , m_then(std::move(then))
    {
        connect(this, &PortalRequest::unavailable, this, [this] { end(false, {}); });
        send(message);
    }

private:
    void takeAnswer(Answer answer, const QVariantMap& results) override
    {
        end(answer == Answer::Success, results);
    }

    void end(bool isSuccess, const QVariantMap& results)
    {
        deleteLater();
        m_then(isSuccess, results);
    }

    Then m_then;
};

} // namespace

ShortcutSession::ShortcutSession(const QList<Request>& requests, Purpose purpose, QString parentWindow)
    : m_requests(requests)
    , m_purpose(purpose)
    , m_parentWindow(std::move(parentWindow))
{
    qDBusRegisterMetaType<PortalShortcut>();
    qDBusRegisterMetaType<QList<PortalShortcut>>();
    if (!QDBusConnection::sessionBus().isConnected()) {
        return;
    }
    askPortals(
        *this,
        [this](bool works) {
            if (works) {
                listen();
                askVersion();
            } else {
                Q_EMIT refused();
            }
        },
        patience);
}

ShortcutSession::~ShortcutSession()
{
    close();
}

void ShortcutSession::close()
{
    const QString handle = std::exchange(m_handle, {});
    if (handle.isEmpty()) {
        return;
    }
    QDBusMessage call = QDBusMessage::createMethodCall(portal::service, handle, sessionInterface, u"Close"_s);
    // A portal that has ended has no session to close.
    call.setAutoStartService(false);
    QDBusConnection::sessionBus().send(call);
}

void ShortcutSession::listen()
{
    QDBusConnection bus = QDBusConnection::sessionBus();
    bus.connect({}, portal::path, shortcutsInterface, u"Activated"_s, this,
                SLOT(takeActivated(QDBusMessage)));
    bus.connect({}, portal::path, shortcutsInterface, u"Deactivated"_s, this,
                SLOT(takeDeactivated(QDBusMessage)));
    bus.connect({}, portal::path, shortcutsInterface, u"ShortcutsChanged"_s, this,
                SLOT(takeChange(QDBusMessage)));
    bus.connect({}, {}, sessionInterface, u"Closed"_s, this, SLOT(takeClosed(QDBusMessage)));
}

void ShortcutSession::askVersion()
{
    const QDBusMessage question = portal::call(u"org.freedesktop.DBus.Properties"_s, u"Get"_s)
                                  << shortcutsInterface << u"version"_s;
    auto* call = new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(question), this);
    connect(call, &QDBusPendingCallWatcher::finished, this, [this, call] {
        call->deleteLater();
        const QDBusPendingReply<QDBusVariant> version = *call;
        if (version.isError()) {
            Q_EMIT refused();
            return;
        }
        m_version = version.value().variant().toUInt();
        create();
    });
}

// KDE 5.27 binds only the shortcuts that come with the session, and BindShortcuts opens its settings. Other desktops bind
// only those of BindShortcuts.
void ShortcutSession::create()
{
    const auto message = [this](const QString& token) {
        return shortcutsCall(u"CreateSession"_s) << QVariantMap{{u"handle_token"_s, token},
                                                                {u"session_handle_token"_s, sessionToken},
                                                                {u"shortcuts"_s, shortcutsFor(m_requests)}};
    };
    new Question(*this, message, [this](bool isSuccess, const QVariantMap& results) {
        const QVariant handle = results.value(u"session_handle"_s);
        m_handle =
            handle.canConvert<QDBusObjectPath>() ? handle.value<QDBusObjectPath>().path() : handle.toString();
        if (!isSuccess || m_handle.isEmpty()) {
            Q_EMIT refused();
            return;
        }
        Q_EMIT started();
        const Triggers triggers = triggersIn(results.value(u"shortcuts"_s));
        if (m_purpose == Purpose::Use && isComplete(triggers)) {
            setTriggers(triggers);
        } else {
            list();
        }
    });
}

// The keys of earlier sessions are shown while the desktop asks the user about the rest, and when the user cancels.
void ShortcutSession::list()
{
    const auto message = [this](const QString& token) {
        return shortcutsCall(u"ListShortcuts"_s)
               << QVariant::fromValue(QDBusObjectPath(m_handle)) << QVariantMap{{u"handle_token"_s, token}};
    };
    new Question(*this, message, [this](bool isSuccess, const QVariantMap& results) {
        if (isSuccess) {
            setTriggers(triggersIn(results.value(u"shortcuts"_s)));
        }
        bind();
    });
}

bool ShortcutSession::isComplete(const Triggers& boundWithSession) const
{
    return std::ranges::all_of(m_requests,
                               [&](const Request& request) { return boundWithSession.contains(request.id); });
}

void ShortcutSession::bind()
{
    const auto message = [this](const QString& token) {
        return shortcutsCall(u"BindShortcuts"_s)
               << QVariant::fromValue(QDBusObjectPath(m_handle)) << shortcutsFor(m_requests) << m_parentWindow
               << QVariantMap{{u"handle_token"_s, token}};
    };
    new Question(*this, message, [this](bool isSuccess, const QVariantMap& results) {
        if (isSuccess && results.contains(u"shortcuts"_s)) {
            setTriggers(triggersIn(results.value(u"shortcuts"_s)));
        }
    });
}

void ShortcutSession::configure(const QString& parentWindow)
{
    if (m_version < versionWithConfigure) {
        Q_EMIT notConfigurable(parentWindow);
        return;
    }
    const QDBusMessage message = shortcutsCall(u"ConfigureShortcuts"_s)
                                 << QVariant::fromValue(QDBusObjectPath(m_handle)) << parentWindow
                                 << QVariantMap();
    auto* call = new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(message), this);
    connect(call, &QDBusPendingCallWatcher::finished, this, [this, call, parentWindow] {
        call->deleteLater();
        // The portal may have the call, and the desktop behind it not. A reply may wait for the user.
        if (call->isError() && call->error().type() != QDBusError::NoReply) {
            Q_EMIT notConfigurable(parentWindow);
        }
    });
}

void ShortcutSession::setTriggers(const Triggers& triggers)
{
    m_triggers = triggers;
    Q_EMIT triggersChanged(m_triggers);
}

bool ShortcutSession::isMine(const QDBusMessage& signal, const char* signature) const
{
    return !m_handle.isEmpty() && signal.signature() == QLatin1StringView(signature) &&
           signal.arguments().constFirst().value<QDBusObjectPath>().path() == m_handle;
}

void ShortcutSession::takeActivated(const QDBusMessage& message)
{
    if (isMine(message, "osta{sv}")) {
        Q_EMIT activated(message.arguments().at(1).toString());
    }
}

void ShortcutSession::takeDeactivated(const QDBusMessage& message)
{
    if (isMine(message, "osta{sv}")) {
        Q_EMIT deactivated(message.arguments().at(1).toString());
    }
}

void ShortcutSession::takeChange(const QDBusMessage& message)
{
    if (isMine(message, "oa(sa{sv})")) {
        Triggers triggers = m_triggers;
        triggers.insert(triggersIn(message.arguments().at(1)));
        setTriggers(triggers);
    }
}

void ShortcutSession::takeClosed(const QDBusMessage& message)
{
    if (!m_handle.isEmpty() && message.path() == m_handle) {
        m_handle.clear();
        Q_EMIT closed();
    }
}

} // namespace tintwick
