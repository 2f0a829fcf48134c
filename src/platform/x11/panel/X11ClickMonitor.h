#pragma once

#include "ClickMonitor.h"
#include "XcbConnection.h"

#include <cstdint>
#include <optional>

namespace tintwick {

/// Listens to raw button events, which come to the root window whatever window or other program's grab gets the click
/// itself; only those of a pick do not come, because its grab is held by this very connection. A program that begins a
/// drag takes the selection of drags while the button is down.
class X11ClickMonitor final : public ClickMonitor, private XcbConnection::Sink
{
public:
    explicit X11ClickMonitor(XcbConnection& connection);
    ~X11ClickMonitor() override;

    void start(PressedElsewhere pressed, ClickedElsewhere clicked) override;
    void stop() override;

private:
    struct Press
    {
        std::uint32_t button = 0;
        bool isToldOf = false;
    };

    void handleEvent(const xcb_generic_event_t& event) override;
    void handlePress(std::uint32_t button);
    void handleRelease(std::uint32_t button);
    void select(std::uint32_t buttonEvents, std::uint32_t selectionEvents) const;
    [[nodiscard]] bool pointerIsOverOwnWindow() const;

    XcbConnection& m_connection;
    std::uint8_t m_inputExtension = 0;
    // None without the extension; then nobody tells of drags.
    std::uint8_t m_selectionEvent = 0;
    xcb_atom_t m_dragSelection = XCB_ATOM_NONE;
    PressedElsewhere m_pressed;
    ClickedElsewhere m_clicked;
    std::optional<Press> m_press;
    XcbConnection::Subscription m_subscription;
};

} // namespace tintwick
