#include "SessionBus.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>

#include <utility>

namespace tintwick {

void askSessionBus(QObject& context, std::function<void(bool works)> then, std::chrono::milliseconds patience)
{
    using namespace Qt::StringLiterals;
    const QString bus = u"org.freedesktop.DBus"_s;
    const QDBusMessage question =
        QDBusMessage::createMethodCall(bus, u"/org/freedesktop/DBus"_s, bus, u"GetId"_s);
    auto* answer = new QDBusPendingCallWatcher(
        QDBusConnection::sessionBus().asyncCall(question, static_cast<int>(patience.count())), &context);
    QObject::connect(answer, &QDBusPendingCallWatcher::finished, &context, [answer, then = std::move(then)] {
        answer->deleteLater();
        then(!answer->isError());
    });
}

} // namespace tintwick
