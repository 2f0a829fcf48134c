#include "InstanceService.h"

#include "InstanceNames.h"

#include <QDBusAbstractAdaptor>
#include <QDBusMessage>
#include <QDBusServiceWatcher>
#include <QUrl>
#include <QVariantMap>

namespace tintwick {

namespace {

using namespace Qt::StringLiterals;

constexpr int patience = 1000; // milliseconds

// Values of org.freedesktop.DBus.RequestName.
constexpr uint doNotQueue = 4;
constexpr uint primaryOwner = 1;
constexpr uint alreadyOwner = 4;

QString tokenIn(const QVariantMap& platformData)
{
    for (const QString& key : {u"activation-token"_s, u"desktop-startup-id"_s}) {
        if (platformData.contains(key)) {
            return platformData.value(key).toString();
        }
    }
    return {};
}

QString wordOf(PickAnswer::Outcome outcome)
{
    switch (outcome) {
    case PickAnswer::Outcome::Picked:
        return u"picked"_s;
    case PickAnswer::Outcome::Cancelled:
        return u"cancelled"_s;
    case PickAnswer::Outcome::Failed:
        return u"failed"_s;
    }
    Q_UNREACHABLE();
}

} // namespace

/// org.freedesktop.Application, which launchers call.
class ApplicationAdaptor final : public QDBusAbstractAdaptor
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Application")

public:
    explicit ApplicationAdaptor(InstanceService* service)
        : QDBusAbstractAdaptor(service)
        , m_service(service)
    {
    }

public Q_SLOTS:
    void Activate(const QVariantMap& platformData) { Q_EMIT m_service->activated(tokenIn(platformData)); }
    void Open(const QStringList& addresses, const QVariantMap& platformData)
    {
        QStringList paths;
        for (const QString& address : addresses) {
            if (const QUrl url(address); url.isLocalFile()) {
                paths.append(url.toLocalFile());
            }
        }
        Q_EMIT m_service->opened(paths, tokenIn(platformData));
    }
    void ActivateAction(const QString& name, const QVariantList&, const QVariantMap& platformData)
    {
        Q_EMIT m_service->actionActivated(name, tokenIn(platformData));
    }

private:
    InstanceService* m_service;
};

/// Our own interface. An answer comes when the user has picked.
class InstanceAdaptor final : public QDBusAbstractAdaptor
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.tintwick.Tintwick")

public:
    explicit InstanceAdaptor(InstanceService* service)
        : QDBusAbstractAdaptor(service)
        , m_service(service)
    {
    }

public Q_SLOTS:
    /// Returns the outcome, the colours as 0xAARRGGBB, their texts and the reason of a failure.
    QString Pick(int count, const QString& format, bool copies, bool saves, const QDBusMessage& call,
                 QList<uint>&, QStringList&, QString&)
    {
        call.setDelayedReply(true);
        // A program that has gone does not wait for the answer, and its user does not expect a loupe.
        auto* watcher = new QDBusServiceWatcher(call.service(), m_service->m_bus,
                                                QDBusServiceWatcher::WatchForUnregistration, this);
        connect(watcher, &QDBusServiceWatcher::serviceUnregistered, m_service,
                &InstanceService::pickAbandoned);
        const auto answer = [bus = m_service->m_bus, call, watcher](const PickAnswer& result) {
            watcher->deleteLater();
            bus.send(call.createReply(QVariantList{wordOf(result.outcome), QVariant::fromValue(result.colors),
                                                   result.texts, result.reason}));
        };
        Q_EMIT m_service->pickRequested({count, format, copies, saves}, answer);
        return {};
    }

private:
    InstanceService* m_service;
};

InstanceService::InstanceService(QObject* parent)
    : QObject(parent)
    , m_bus(QDBusConnection::sessionBus())
{
    new ApplicationAdaptor(this);
    new InstanceAdaptor(this);
}

InstanceService::Claim InstanceService::claim()
{
    if (!m_bus.isConnected()) {
        return Claim::NoBus;
    }
    // The object comes first, because a call may arrive as soon as the name is ours.
    m_bus.registerObject(instancePath(), this);
    QDBusMessage call = QDBusMessage::createMethodCall(u"org.freedesktop.DBus"_s, u"/org/freedesktop/DBus"_s,
                                                       u"org.freedesktop.DBus"_s, u"RequestName"_s);
    call << instanceService() << doNotQueue;
    const QDBusMessage reply = m_bus.call(call, QDBus::Block, patience);
    if (reply.type() != QDBusMessage::ReplyMessage || reply.arguments().isEmpty()) {
        return Claim::NoBus;
    }
    const uint result = reply.arguments().first().toUInt();
    return result == primaryOwner || result == alreadyOwner ? Claim::Owned : Claim::Taken;
}

} // namespace tintwick

#include "InstanceService.moc"
