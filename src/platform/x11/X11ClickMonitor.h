#pragma once

#include "platform/ClickMonitor.h"
#include "platform/x11/XcbConnection.h"

#include <cstdint>

namespace tintwick {

/// Listens to raw button events, which come to the root window whatever window or grab gets the click itself.
class X11ClickMonitor final : public ClickMonitor, private XcbConnection::Sink
{
public:
    explicit X11ClickMonitor(XcbConnection& connection);
    ~X11ClickMonitor() override;

    void start(PressedElsewhere handler) override;
    void stop() override;

private:
    void handleEvent(const xcb_generic_event_t& event) override;
    void selectRawButtons(std::uint32_t events) const;
    [[nodiscard]] bool pointerIsOverOwnWindow() const;

    XcbConnection& m_connection;
    std::uint8_t m_extension = 0;
    PressedElsewhere m_handler;
    XcbConnection::Subscription m_subscription;
};

} // namespace tintwick
