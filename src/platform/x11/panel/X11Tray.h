#pragma once

#include "Tray.h"
#include "XcbConnection.h"

#include <cstdint>

namespace tintwick {

/// The owner of the system tray selection and its property _NET_SYSTEM_TRAY_COLORS.
class X11Tray final : public Tray, private XcbConnection::Sink
{
    Q_OBJECT

public:
    explicit X11Tray(XcbConnection& connection);

    [[nodiscard]] std::optional<QColor> symbolColor() const override { return m_symbolColor; }

private:
    void handleEvent(const xcb_generic_event_t& event) override;
    /// Selects the property changes of the tray that is there now.
    void followOwner();
    void readColor();

    XcbConnection& m_connection;
    xcb_atom_t m_selection = XCB_ATOM_NONE;
    xcb_atom_t m_colors = XCB_ATOM_NONE;
    /// 0 without the XFixes extension.
    std::uint8_t m_selectionEvent = 0;
    xcb_window_t m_owner = XCB_WINDOW_NONE;
    std::optional<QColor> m_symbolColor;
    XcbConnection::Subscription m_subscription;
};

} // namespace tintwick
