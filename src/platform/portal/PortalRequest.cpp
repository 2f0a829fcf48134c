#include "PortalRequest.h"

#include "Portal.h"
#include "PortalAccess.h"

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusServiceWatcher>

#include <utility>

namespace tintwick {

namespace {

using namespace Qt::StringLiterals;

const QString requestInterface = u"org.freedesktop.portal.Request"_s;

/// The numbers of the answers.
enum Response : unsigned { Succeeded = 0, CancelledByUser = 1 };

QString nextToken()
{
    static int number = 0;
    return u"tintwick"_s + QString::number(++number);
}

/// Where a portal puts the object for a request with this token.
QString handlePath(const QDBusConnection& bus, const QString& token)
{
    const QString sender = bus.baseService().mid(1).replace(u'.', u'_');
    return portal::path + u"/request/"_s + sender + u'/' + token;
}

} // namespace

PortalRequest::PortalRequest(QObject* parent)
    : QObject(parent)
{
}

PortalRequest::~PortalRequest()
{
    close();
}

void PortalRequest::close()
{
    if (end() && !m_handle.isEmpty()) {
        QDBusConnection::sessionBus().send(
            QDBusMessage::createMethodCall(portal::service, m_handle, requestInterface, u"Close"_s));
    }
}

void PortalRequest::send(const Call& call)
{
    if (!QDBusConnection::sessionBus().isConnected()) {
        giveUp();
        return;
    }
    askPortals(*this, [this, call](bool works) {
        if (!works) {
            giveUp();
        } else if (!m_hasEnded) {
            sendNow(call);
        }
    });
}

void PortalRequest::sendNow(const Call& call)
{
    QDBusConnection bus = QDBusConnection::sessionBus();
    auto* watcher =
        new QDBusServiceWatcher(portal::service, bus, QDBusServiceWatcher::WatchForUnregistration, this);
    connect(watcher, &QDBusServiceWatcher::serviceUnregistered, this, &PortalRequest::giveUp);
    // Subscribes before the call, because the answer may come before the reply; and to every path, because an old portal
    // chooses the path itself and reports it only in the reply.
    bus.connect({}, {}, requestInterface, u"Response"_s, this, SLOT(takeResponse(QDBusMessage)));

    const QString token = nextToken();
    m_handle = handlePath(bus, token);
    auto* reply = new QDBusPendingCallWatcher(bus.asyncCall(call(token)), this);
    connect(reply, &QDBusPendingCallWatcher::finished, this, &PortalRequest::takeHandle);
}

void PortalRequest::takeHandle(QDBusPendingCallWatcher* call)
{
    call->deleteLater();
    const QDBusPendingReply<QDBusObjectPath> reply = *call;
    if (reply.isError()) {
        giveUp();
        return;
    }
    m_handle = reply.value().path();
}

void PortalRequest::takeResponse(const QDBusMessage& message)
{
    if (message.path() != m_handle || message.signature() != "ua{sv}"_L1 || !end()) {
        return;
    }
    const QVariantList arguments = message.arguments();
    const unsigned response = arguments.at(0).toUInt();
    takeAnswer(response == Succeeded         ? Answer::Success
               : response == CancelledByUser ? Answer::Cancelled
                                             : Answer::Failed,
               qdbus_cast<QVariantMap>(arguments.at(1)));
}

void PortalRequest::giveUp()
{
    if (end()) {
        Q_EMIT unavailable();
    }
}

bool PortalRequest::end()
{
    return !std::exchange(m_hasEnded, true);
}

} // namespace tintwick
