#pragma once

#include "XcbConnection.h"
#include "XcbHandle.h"

#include <QObject>

#include <cstdint>

namespace tintwick {

/// Reports the start and the end of a compositor. Costs nothing while stopped.
class X11CompositorMonitor final : public QObject, private XcbConnection::Sink
{
    Q_OBJECT

public:
    explicit X11CompositorMonitor(XcbConnection& connection);
    ~X11CompositorMonitor() override;

    /// Does nothing without the XFixes extension.
    void start();
    void stop();

Q_SIGNALS:
    void changed();

private:
    void handleEvent(const xcb_generic_event_t& event) override;

    XcbConnection& m_connection;
    /// 0 without the XFixes extension.
    std::uint8_t m_selectionEvent = 0;
    xcb_atom_t m_selection = XCB_ATOM_NONE;
    /// Receives the events. One of its own, because a pick selects and deselects the same events on the root window.
    XcbWindow m_receiver;
    XcbConnection::Subscription m_subscription;
};

} // namespace tintwick
