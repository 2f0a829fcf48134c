#include "support/PrivateSession.h"

#include "support/WaitUntil.h"

#include <QDir>
#include <QFile>

#include <csignal>
#include <stdexcept>

#include <sys/types.h>

namespace tintwick {

PrivateSession::PrivateSession()
{
    if (!m_folder.isValid()) {
        throw std::runtime_error("no temporary folder");
    }
    const auto addFolder = [this](const char* variable, const char* name) {
        const QString path = m_folder.filePath(QString::fromLatin1(name));
        if (!QDir().mkpath(path)) {
            throw std::runtime_error("no folder for the private desktop");
        }
        QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        setVariable(QString::fromLatin1(variable), path);
    };
    addFolder("XDG_DATA_HOME", "data");
    addFolder("XDG_CONFIG_HOME", "config");
    addFolder("XDG_CACHE_HOME", "cache");
    addFolder("XDG_RUNTIME_DIR", "runtime");
    addFolder("TMPDIR", "tmp");
    setVariable(QStringLiteral("HOME"), m_folder.path());
    setVariable(QStringLiteral("LANG"), QStringLiteral("C.UTF-8"));
    // Without an address some programs would search for a bus, or start one.
    setVariable(busVariable(), QStringLiteral("disabled:"));
    setVariable(QStringLiteral("NO_AT_BRIDGE"), QStringLiteral("1"));
    const auto outer = QProcessEnvironment::systemEnvironment();
    // The programs under test need ASAN_OPTIONS and the like.
    for (const QString& name : outer.keys()) {
        if (name == QLatin1StringView("PATH") || name.endsWith(QLatin1StringView("SAN_OPTIONS"))) {
            setVariable(name, outer.value(name));
        }
    }
}

PrivateSession::~PrivateSession()
{
    if (m_bus) {
        ::kill(static_cast<pid_t>(m_bus->processId()), SIGCONT);
    }
}

void PrivateSession::startBus(Services services)
{
    // The default address is below /tmp, where a killed bus leaves its socket.
    const QString configuration =
        QStringLiteral("<busconfig>"
                       "<type>session</type>"
                       "<listen>unix:path=%1/bus</listen>"
                       "<servicedir>%1/services</servicedir>"
                       "%2"
                       "<auth>EXTERNAL</auth>"
                       "<policy context=\"default\">"
                       "<allow send_destination=\"*\" eavesdrop=\"true\"/>"
                       "<allow eavesdrop=\"true\"/>"
                       "<allow own=\"*\"/>"
                       "</policy>"
                       "</busconfig>")
            .arg(m_folder.path(),
                 QLatin1StringView(services == Services::Installed ? "<standard_session_servicedirs/>" : ""));
    QFile file(m_folder.filePath(QStringLiteral("bus.conf")));
    if (!file.open(QIODevice::WriteOnly) || file.write(configuration.toUtf8()) < 0) {
        throw std::runtime_error("cannot write the configuration of dbus-daemon");
    }
    file.close();
    m_bus = start(QStringLiteral("dbus-daemon"),
                  {QStringLiteral("--config-file"), file.fileName(), QStringLiteral("--nofork"),
                   QStringLiteral("--nopidfile"), QStringLiteral("--print-address=1")});
    if (!waitUntil([this] { return m_bus->standardOutput().endsWith('\n'); })) {
        throw std::runtime_error("dbus-daemon does not come up");
    }
    setVariable(busVariable(), QString::fromLatin1(m_bus->standardOutput().trimmed()));
}

void PrivateSession::freezeBus() const
{
    ::kill(static_cast<pid_t>(m_bus->processId()), SIGSTOP);
}

std::unique_ptr<RunningProgram> PrivateSession::start(const QString& program, const QStringList& arguments,
                                                      const QProcessEnvironment& additions) const
{
    QProcessEnvironment all = m_variables;
    all.insert(additions);
    return std::make_unique<RunningProgram>(program, arguments, all, m_folder.path());
}

} // namespace tintwick
