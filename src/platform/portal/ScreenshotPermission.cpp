#include "ScreenshotPermission.h"

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusVariant>
#include <QVariantMap>

namespace tintwick {

namespace {

using namespace Qt::StringLiterals;

/// The answers by the identity of the program that asked: a{sas}.
using Answers = QMap<QString, QStringList>;

const QString store = u"org.freedesktop.impl.portal.PermissionStore"_s;
const QString storePath = u"/org/freedesktop/impl/portal/PermissionStore"_s;
/// The table of the store, and the only row in it.
const QString screenshots = u"screenshot"_s;

const QString identity = u"org.tintwick.Tintwick"_s;
const QString settingsProgram = u"org.gnome.Settings"_s;

Answers readAnswers(const QVariant& argument)
{
    return qdbus_cast<Answers>(argument.value<QDBusArgument>());
}

} // namespace

ScreenshotPermission::ScreenshotPermission(QObject* parent)
    : QObject(parent)
{
    QDBusConnection bus = QDBusConnection::sessionBus();
    // Without the name of the service, which would be looked up and could block.
    bus.connect({}, storePath, store, u"Changed"_s, this, SLOT(takeChange(QDBusMessage)));
    askStore();
    askForSettings();
}

void ScreenshotPermission::askStore()
{
    QDBusMessage question = QDBusMessage::createMethodCall(store, storePath, store, u"Lookup"_s);
    question << screenshots << screenshots;
    auto* call = new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(question), this);
    connect(call, &QDBusPendingCallWatcher::finished, this, &ScreenshotPermission::takeAnswer);
}

void ScreenshotPermission::askForSettings()
{
    const QString bus = u"org.freedesktop.DBus"_s;
    auto* call =
        new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(QDBusMessage::createMethodCall(
                                        bus, u"/org/freedesktop/DBus"_s, bus, u"ListActivatableNames"_s)),
                                    this);
    connect(call, &QDBusPendingCallWatcher::finished, this, [this, call] {
        call->deleteLater();
        const QDBusPendingReply<QStringList> names = *call;
        m_hasSettings = !names.isError() && names.value().contains(settingsProgram);
    });
}

void ScreenshotPermission::takeAnswer(QDBusPendingCallWatcher* call)
{
    call->deleteLater();
    // An error means that nobody was asked yet.
    const QDBusMessage reply = call->reply();
    if (!call->isError() && reply.signature() == "a{sas}v"_L1) {
        setAnswers(readAnswers(reply.arguments().at(0)));
    }
}

void ScreenshotPermission::takeChange(const QDBusMessage& message)
{
    if (message.signature() == "ssbva{sas}"_L1 && message.arguments().at(0).toString() == screenshots) {
        setAnswers(readAnswers(message.arguments().at(4)));
    }
}

void ScreenshotPermission::setAnswers(const Answers& answers)
{
    // A program that the desktop did not start from its desktop entry has no identity.
    const QStringList answer = answers.value(identity, answers.value(QString()));
    const bool isDenied = answer.value(0) == "no"_L1;
    if (m_isDenied != isDenied) {
        m_isDenied = isDenied;
        Q_EMIT changed();
    }
}

void ScreenshotPermission::openSettings()
{
    QDBusMessage call = QDBusMessage::createMethodCall(settingsProgram, u"/org/gnome/Settings"_s,
                                                       u"org.freedesktop.Application"_s, u"ActivateAction"_s);
    // (sav): the panel and its arguments.
    QDBusArgument panel;
    panel.beginStructure();
    panel << u"applications"_s;
    panel.beginArray(QMetaType::fromType<QDBusVariant>());
    panel << QDBusVariant(identity);
    panel.endArray();
    panel.endStructure();
    call << u"launch-panel"_s << QVariantList{QVariant::fromValue(panel)} << QVariantMap();
    QDBusConnection::sessionBus().send(call);
}

} // namespace tintwick
