#pragma once

#include "XcbConnection.h"

#include <QObject>
#include <QTimer>

#include <chrono>
#include <memory>
#include <optional>

namespace tintwick {

/// Reports when key combinations that other clients hold may have become free. The server does not report the end of a
/// grab, so this watches for destroyed windows, as those of a program that ends, and has an interval for programs
/// without a window.
class FreedKeysWatch final : public QObject, private XcbConnection::Sink
{
    Q_OBJECT

public:
    /// The application object must exist.
    explicit FreedKeysWatch(std::chrono::milliseconds interval);
    ~FreedKeysWatch() override;

    /// Costs nothing while inactive, as at first.
    void setActive(bool isActive);

Q_SIGNALS:
    /// Several destroyed windows are reported once.
    void mayBeFree();

private:
    void handleEvent(const xcb_generic_event_t& event) override;

    QTimer m_interval;
    QTimer m_afterDestroy;
    /// Its own, because a window has one event mask for each connection, and picking selects events of the root window.
    std::unique_ptr<XcbConnection> m_connection;
    std::optional<XcbConnection::Subscription> m_subscription;
};

} // namespace tintwick
