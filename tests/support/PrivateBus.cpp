#include "support/PrivateBus.h"

#include <QDBusMessage>
#include <QDir>
#include <QFile>

#include <csignal>
#include <stdexcept>

namespace tintwick::test {

namespace {

using namespace Qt::StringLiterals;

constexpr char configuration[] = R"(<busconfig>
<type>session</type>
<listen>unix:path=%1/bus</listen>
<servicedir>%1/services</servicedir>
<auth>EXTERNAL</auth>
<policy context="default">
<allow send_destination="*" eavesdrop="true"/>
<allow eavesdrop="true"/>
<allow own="*"/>
</policy>
</busconfig>
)";

void write(const QString& path, const QString& text)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(text.toUtf8()) < 0) {
        throw std::runtime_error("cannot write a file for dbus-daemon");
    }
}

} // namespace

PrivateBus::PrivateBus()
{
    const QString file = m_folder.filePath(u"bus.conf"_s);
    QDir(m_folder.path()).mkdir(u"services"_s);
    write(file, QString::fromLatin1(configuration).arg(m_folder.path()));
    m_bus.start(u"dbus-daemon"_s,
                {u"--config-file="_s + file, u"--nofork"_s, u"--nopidfile"_s, u"--print-address"_s});
    if (!m_bus.waitForReadyRead()) {
        throw std::runtime_error("dbus-daemon does not come up");
    }
    qputenv("DBUS_SESSION_BUS_ADDRESS", m_bus.readLine().trimmed());
}

PrivateBus::~PrivateBus()
{
    QDBusConnection::disconnectFromBus(u"qt_default_session_bus"_s);
    m_bus.terminate();
    m_bus.waitForFinished();
}

void PrivateBus::addActivatable(const QString& service)
{
    write(m_folder.filePath(u"services/"_s + service + u".service"_s),
          u"[D-BUS Service]\nName="_s + service + u"\nExec=/bin/false\n"_s);
    const QString bus = u"org.freedesktop.DBus"_s;
    QDBusConnection::sessionBus().call(
        QDBusMessage::createMethodCall(bus, u"/org/freedesktop/DBus"_s, bus, u"ReloadConfig"_s));
}

void PrivateBus::freeze() const
{
    ::kill(static_cast<pid_t>(m_bus.processId()), SIGSTOP);
}

void PrivateBus::goOn() const
{
    ::kill(static_cast<pid_t>(m_bus.processId()), SIGCONT);
}

QDBusConnection PrivateBus::connectAs(const QString& name)
{
    return QDBusConnection::connectToBus(qEnvironmentVariable("DBUS_SESSION_BUS_ADDRESS"), name);
}

} // namespace tintwick::test
