#pragma once

#include "PickRequest.h"

#include <QDBusConnection>
#include <QObject>
#include <QString>
#include <QStringList>

#include <cstdint>
#include <functional>

namespace tintwick {

/// The running program on the session bus: owns the name org.tintwick.Tintwick, implements org.freedesktop.Application
/// and, for the command line, org.tintwick.Tintwick.
class InstanceService final : public QObject
{
    Q_OBJECT

public:
    enum class Claim : std::uint8_t {
        /// This process owns the name.
        Owned,
        /// Another process owns the name.
        Taken,
        /// There is no session bus, or it does not answer.
        NoBus
    };

    /// Called once when a requested series of picks has ended.
    using Answer = std::function<void(const PickAnswer& answer)>;

    explicit InstanceService(QObject* parent = nullptr);

    /// Takes the name. Call once, after connecting to the signals: calls that wait for the program arrive from the event
    /// loop afterwards. Waits for the bus, but at most a second.
    [[nodiscard]] Claim claim();

Q_SIGNALS:
    /// The user started the program again. `token` allows a window to take the keyboard; it may be empty.
    void activated(const QString& token);
    /// The user opens local files with the program.
    void opened(const QStringList& paths, const QString& token);
    /// The user chose an action of the desktop entry: "pick", "settings" or "quit".
    void actionActivated(const QString& name, const QString& token);
    /// Another program asks for picks. The receiver calls `answer`.
    void pickRequested(const tintwick::PickRequest& request, const tintwick::InstanceService::Answer& answer);
    /// The program that asked for the pick has gone.
    void pickAbandoned();

private:
    friend class InstanceAdaptor;

    QDBusConnection m_bus;
};

} // namespace tintwick
