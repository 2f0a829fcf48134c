#pragma once

#include <QDBusConnection>
#include <QDBusContext>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QObject>
#include <QString>
#include <QVariantMap>

namespace tintwick::test {

/// A Screenshot portal on the test's bus that gives the scripted answer.
class ScriptedScreenshotPortal final : public QObject, protected QDBusContext
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Screenshot")

public:
    /// 0 is a success, 1 a cancel by the user, 2 everything else.
    unsigned response = 0;
    /// The file of the picture.
    QString file;
    /// Leaves the request open, as a question to the user does.
    bool isSilent = false;
    int requests = 0;
    QVariantMap lastOptions;

    /// Returns false when the bus does not accept it.
    [[nodiscard]] bool offer(QDBusConnection bus)
    {
        return bus.registerObject(QStringLiteral("/org/freedesktop/portal/desktop"), this,
                                  QDBusConnection::ExportAllSlots) &&
               bus.registerService(QStringLiteral("org.freedesktop.portal.Desktop"));
    }

    /// Answers the last request.
    void respond(const QDBusConnection& bus) const
    {
        QVariantMap results;
        if (response == 0) {
            results.insert(QStringLiteral("uri"), QStringLiteral("file://") + file);
        }
        QDBusMessage signal = QDBusMessage::createSignal(
            m_path, QStringLiteral("org.freedesktop.portal.Request"), QStringLiteral("Response"));
        signal << response << results;
        bus.send(signal);
    }

public Q_SLOTS:
    // The D-Bus interface defines the name.
    QDBusObjectPath Screenshot(const QString&, const QVariantMap& options)
    {
        ++requests;
        lastOptions = options;
        const QString sender = message().service().mid(1).replace(u'.', u'_');
        m_path = QStringLiteral("/org/freedesktop/portal/desktop/request/") + sender + u'/' +
                 options.value(QStringLiteral("handle_token")).toString();
        if (!isSilent) {
            respond(connection());
        }
        return QDBusObjectPath(m_path);
    }

private:
    QString m_path;
};

} // namespace tintwick::test
