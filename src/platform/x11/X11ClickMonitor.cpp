#include "platform/x11/X11ClickMonitor.h"

#include "platform/x11/ClientResources.h"
#include "platform/x11/ToolkitConnection.h"
#include "platform/x11/XInput.h"

#include <xcb/xinput.h>

namespace tintwick {

namespace {

constexpr std::uint32_t primaryButton = 1;
constexpr std::uint32_t secondaryButton = 3;

} // namespace

X11ClickMonitor::X11ClickMonitor(XcbConnection& connection)
    : m_connection(connection)
    , m_extension(openInputExtension(connection))
{
}

X11ClickMonitor::~X11ClickMonitor()
{
    stop();
}

void X11ClickMonitor::start(PressedElsewhere handler)
{
    if (m_extension == 0) {
        return;
    }
    if (!m_handler) {
        m_subscription = m_connection.subscribe(*this);
        selectRawButtons(XCB_INPUT_XI_EVENT_MASK_RAW_BUTTON_PRESS);
    }
    m_handler = std::move(handler);
}

void X11ClickMonitor::stop()
{
    if (!m_handler) {
        return;
    }
    m_handler = nullptr;
    selectRawButtons(0);
    m_subscription = {};
}

void X11ClickMonitor::handleEvent(const xcb_generic_event_t& event)
{
    if ((event.response_type & 0x7f) != XCB_GE_GENERIC) {
        return;
    }
    const auto& generic = reinterpret_cast<const xcb_ge_generic_event_t&>(event);
    if (generic.extension != m_extension || generic.event_type != XCB_INPUT_RAW_BUTTON_PRESS) {
        return;
    }
    const std::uint32_t button = reinterpret_cast<const xcb_input_raw_button_press_event_t&>(event).detail;
    if ((button != primaryButton && button != secondaryButton) || pointerIsOverOwnWindow()) {
        return;
    }
    // The handler may stop the monitor.
    const PressedElsewhere handler = m_handler;
    handler();
}

void X11ClickMonitor::selectRawButtons(std::uint32_t events) const
{
    const struct
    {
        xcb_input_event_mask_t header;
        std::uint32_t events;
    } mask{{XCB_INPUT_DEVICE_ALL_MASTER, 1}, events};
    xcb_input_xi_select_events(m_connection.get(), m_connection.root(), 1, &mask.header);
    m_connection.flush();
}

bool X11ClickMonitor::pointerIsOverOwnWindow() const
{
    xcb_connection_t* c = m_connection.get();
    xcb_connection_t* toolkitConnection = toolkit::connection();
    // Window managers and trays put our windows into windows of theirs.
    for (xcb_window_t window = m_connection.root(); window != XCB_NONE;) {
        if (isFromClient(window, *xcb_get_setup(c)) ||
            (toolkitConnection && isFromClient(window, *xcb_get_setup(toolkitConnection)))) {
            return true;
        }
        const XcbReply<xcb_query_pointer_reply_t> pointer(
            xcb_query_pointer_reply(c, xcb_query_pointer(c, window), nullptr));
        window = pointer ? pointer->child : XCB_NONE;
    }
    return false;
}

} // namespace tintwick
