#include "PortalSaveDialog.h"

#include "ContentType.h"

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusObjectPath>
#include <QDBusPendingCallWatcher>
#include <QDBusServiceWatcher>
#include <QFile>
#include <QList>
#include <QUrl>
#include <QVariantMap>

#include <utility>

namespace tintwick {

namespace {

using namespace Qt::StringLiterals;

const QString portal = u"org.freedesktop.portal.Desktop"_s;
const QString portalPath = u"/org/freedesktop/portal/desktop"_s;
const QString fileChooser = u"org.freedesktop.portal.FileChooser"_s;
const QString request = u"org.freedesktop.portal.Request"_s;

enum PortalResponse : unsigned { Success = 0 };
enum PortalPatternKind : unsigned { Glob = 0 };

/// (us)
struct PortalPattern
{
    unsigned kind = Glob;
    QString text;
};

/// (sa(us))
struct PortalFilter
{
    QString name;
    QList<PortalPattern> patterns;
};

QDBusArgument& operator<<(QDBusArgument& argument, const PortalPattern& pattern)
{
    argument.beginStructure();
    argument << pattern.kind << pattern.text;
    argument.endStructure();
    return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, PortalPattern& pattern)
{
    argument.beginStructure();
    argument >> pattern.kind >> pattern.text;
    argument.endStructure();
    return argument;
}

QDBusArgument& operator<<(QDBusArgument& argument, const PortalFilter& filter)
{
    argument.beginStructure();
    argument << filter.name << filter.patterns;
    argument.endStructure();
    return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, PortalFilter& filter)
{
    argument.beginStructure();
    argument >> filter.name >> filter.patterns;
    argument.endStructure();
    return argument;
}

QVariant filtersFor(const ContentType& contentType)
{
    qDBusRegisterMetaType<PortalPattern>();
    qDBusRegisterMetaType<QList<PortalPattern>>();
    qDBusRegisterMetaType<PortalFilter>();
    qDBusRegisterMetaType<QList<PortalFilter>>();
    return QVariant::fromValue(
        QList<PortalFilter>{{contentType.name, {{Glob, u"*."_s + contentType.suffix}}}});
}

QString nextToken()
{
    static int number = 0;
    return u"tintwick"_s + QString::number(++number);
}

} // namespace

PortalSaveDialog::PortalSaveDialog(QObject* parent)
    : QObject(parent)
{
}

PortalSaveDialog::~PortalSaveDialog()
{
    if (!m_isSettled && !m_request.isEmpty()) {
        QDBusConnection::sessionBus().send(
            QDBusMessage::createMethodCall(portal, m_request, request, u"Close"_s));
    }
}

void PortalSaveDialog::ask(const Question& question, const ContentType& contentType)
{
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) {
        giveUp();
        return;
    }
    auto* watcher = new QDBusServiceWatcher(portal, bus, QDBusServiceWatcher::WatchForUnregistration, this);
    connect(watcher, &QDBusServiceWatcher::serviceUnregistered, this, &PortalSaveDialog::giveUp);
    // From every request, because an old portal says only in its reply which one is ours.
    bus.connect(portal, {}, request, u"Response"_s, this, SLOT(takeResponse(QDBusMessage)));

    const QString token = nextToken();
    m_request = portalPath + u"/request/"_s + bus.baseService().mid(1).replace(u'.', u'_') + u'/' + token;
    QVariantMap options{{u"handle_token"_s, token},
                        {u"modal"_s, false},
                        {u"current_name"_s, question.suggestedName},
                        {u"filters"_s, filtersFor(contentType)}};
    if (!question.folder.isEmpty()) {
        // A path in the file system's own bytes, ended by a zero.
        options.insert(u"current_folder"_s, QFile::encodeName(question.folder).append('\0'));
    }
    QDBusMessage call = QDBusMessage::createMethodCall(portal, portalPath, fileChooser, u"SaveFile"_s);
    call << question.parentWindow << question.title << options;
    auto* reply = new QDBusPendingCallWatcher(bus.asyncCall(call), this);
    connect(reply, &QDBusPendingCallWatcher::finished, this, &PortalSaveDialog::takeReply);
}

void PortalSaveDialog::takeReply(QDBusPendingCallWatcher* call)
{
    call->deleteLater();
    const QDBusMessage reply = call->reply();
    if (reply.type() != QDBusMessage::ReplyMessage || reply.signature() != "o"_L1) {
        giveUp();
        return;
    }
    m_request = reply.arguments().constFirst().value<QDBusObjectPath>().path();
}

void PortalSaveDialog::takeResponse(const QDBusMessage& message)
{
    if (message.path() != m_request || message.signature() != "ua{sv}"_L1 || !settle()) {
        return;
    }
    const auto results = qdbus_cast<QVariantMap>(message.arguments().at(1));
    const QUrl url(results.value(u"uris"_s).toStringList().value(0));
    if (message.arguments().constFirst().toUInt() == Success && url.isLocalFile()) {
        Q_EMIT chosen(url.toLocalFile());
    } else {
        Q_EMIT cancelled();
    }
}

void PortalSaveDialog::giveUp()
{
    if (settle()) {
        Q_EMIT unavailable();
    }
}

bool PortalSaveDialog::settle()
{
    return !std::exchange(m_isSettled, true);
}

} // namespace tintwick
