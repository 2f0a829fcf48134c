#pragma once

#include <QDBusConnection>
#include <QProcess>
#include <QString>
#include <QTemporaryDir>

namespace tintwick::test {

/// A session bus for this process alone, which starts none of the services of this machine. Create it before the first
/// use of the session bus.
class PrivateBus final
{
public:
    /// Throws std::runtime_error when no bus comes up.
    PrivateBus();
    ~PrivateBus();
    PrivateBus(const PrivateBus&) = delete;
    PrivateBus& operator=(const PrivateBus&) = delete;

    /// Lists the name of a service that the bus could start.
    void addActivatable(const QString& service);

    /// Stops the bus, so that it takes no message, until it goes on.
    void freeze() const;
    void goOn() const;

    /// A connection of another program. Disconnect it by its name.
    [[nodiscard]] static QDBusConnection connectAs(const QString& name);

private:
    QTemporaryDir m_folder;
    QProcess m_bus;
};

} // namespace tintwick::test
