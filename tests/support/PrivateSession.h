#pragma once

#include "support/RunningProgram.h"

#include <QByteArray>
#include <QProcessEnvironment>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

#include <cstdint>
#include <memory>

namespace tintwick {

/// The home folder and the environment of a private desktop, and on request a session bus. All ends with the object.
class PrivateSession final
{
public:
    enum class Services : std::uint8_t {
        /// None but those in the folder "services" of the home folder.
        Own,
        /// Also those that are installed on this machine, such as the portals.
        Installed
    };

    /// Throws std::runtime_error when there is no room for the folders.
    PrivateSession();
    ~PrivateSession();

    [[nodiscard]] QString homeFolder() const { return m_folder.path(); }
    /// $XDG_DATA_HOME and $XDG_CONFIG_HOME of the programs started here.
    [[nodiscard]] QString dataHome() const { return m_folder.filePath(QStringLiteral("data")); }
    [[nodiscard]] QString configHome() const { return m_folder.filePath(QStringLiteral("config")); }

    /// `services` are those that the bus starts when a program calls them. Throws std::runtime_error when the bus does
    /// not come up.
    void startBus(Services services = Services::Own);
    /// Stops the bus, so that it takes no message, until the session ends.
    void freezeBus() const;
    [[nodiscard]] QString busAddress() const { return m_variables.value(busVariable()); }

    /// Adds a variable to the environment, such as the name of the display.
    void setVariable(const QString& name, const QString& value) { m_variables.insert(name, value); }
    /// The environment of programs started here: nothing of the desktop that runs the tests.
    [[nodiscard]] const QProcessEnvironment& environment() const { return m_variables; }
    [[nodiscard]] std::unique_ptr<RunningProgram> start(const QString& program,
                                                        const QStringList& arguments = {},
                                                        const QProcessEnvironment& additions = {}) const;

private:
    [[nodiscard]] static QString busVariable() { return QStringLiteral("DBUS_SESSION_BUS_ADDRESS"); }

    QTemporaryDir m_folder;
    QProcessEnvironment m_variables;
    std::unique_ptr<RunningProgram> m_bus;
};

} // namespace tintwick
