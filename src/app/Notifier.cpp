#include "Notifier.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QStringList>
#include <QVariantMap>

namespace tintwick {

namespace {

using namespace Qt::StringLiterals;

constexpr int expiryOfTheDesktop = -1;

} // namespace

void Notifier::notify(const QString& summary, const QString& body)
{
    QDBusMessage call = QDBusMessage::createMethodCall(u"org.freedesktop.Notifications"_s,
                                                       u"/org/freedesktop/Notifications"_s,
                                                       u"org.freedesktop.Notifications"_s, u"Notify"_s);
    call << QCoreApplication::applicationName() << m_lastId << u"org.tintwick.Tintwick"_s << summary
         << body.toHtmlEscaped() << QStringList() << QVariantMap() << expiryOfTheDesktop;
    auto* watcher = new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(call), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher, summary, body] {
        watcher->deleteLater();
        const QDBusPendingReply<uint> reply = *watcher;
        if (reply.isError()) {
            Q_EMIT unavailable(summary, body);
        } else {
            m_lastId = reply.value();
        }
    });
}

} // namespace tintwick
