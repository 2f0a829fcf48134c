#pragma once

#include "XcbConnection.h"

#include <QObject>

#include <cstdint>
#include <optional>

namespace tintwick {

/// Reports clicks of the primary or secondary button outside this process's windows. Other programs get these clicks
/// too. Our menus, the tray icon where it is our window, and all clicks during a pick count as inside. A press that
/// starts a drag in another program is not a click. Costs nothing while stopped.
///
/// It selects raw button events, which the root window gets whichever window or grab gets the click; only the grab of a
/// pick withholds them, because this connection holds it. A program that starts a drag takes the XdndSelection while
/// the button is down.
class X11ClickMonitor final : public QObject, private XcbConnection::Sink
{
    Q_OBJECT

public:
    explicit X11ClickMonitor(XcbConnection& connection);
    ~X11ClickMonitor() override;

    /// Does not report a button that is already down.
    void start();
    void stop();

Q_SIGNALS:
    /// A button went down outside. A second button before its release is not reported.
    void pressed();
    /// The same button is up again and no drag has started.
    void clicked();

private:
    struct Press
    {
        std::uint32_t button = 0;
        bool isDrag = false;
    };

    void handleEvent(const xcb_generic_event_t& event) override;
    void handlePress(std::uint32_t button);
    void handleRelease(std::uint32_t button);
    void select(std::uint32_t buttonEvents, std::uint32_t selectionEvents) const;
    [[nodiscard]] bool pointerIsOverOwnWindow() const;

    XcbConnection& m_connection;
    std::uint8_t m_inputExtension = 0;
    /// 0 without the XFixes extension; drags then count as clicks.
    std::uint8_t m_selectionEvent = 0;
    xcb_atom_t m_dragSelection = XCB_ATOM_NONE;
    bool m_isStarted = false;
    std::optional<Press> m_press;
    XcbConnection::Subscription m_subscription;
};

} // namespace tintwick
