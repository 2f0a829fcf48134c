#include "X11ClickMonitor.h"

#include "ClientResources.h"
#include "ToolkitConnection.h"
#include "XInput.h"

#include <xcb/xfixes.h>
#include <xcb/xinput.h>

namespace tintwick {

namespace {

constexpr std::uint32_t primaryButton = 1;
constexpr std::uint32_t secondaryButton = 3;

} // namespace

X11ClickMonitor::X11ClickMonitor(XcbConnection& connection)
    : m_connection(connection)
    , m_inputExtension(openInputExtension(connection))
    , m_dragSelection(connection.atom("XdndSelection"))
{
    xcb_connection_t* c = m_connection.get();
    const xcb_query_extension_reply_t* fixes = xcb_get_extension_data(c, &xcb_xfixes_id);
    if (fixes && fixes->present != 0) {
        m_selectionEvent = static_cast<std::uint8_t>(fixes->first_event + XCB_XFIXES_SELECTION_NOTIFY);
        // The server refuses XFixes requests of a client that has not asked for the version.
        xcb_discard_reply(c, xcb_xfixes_query_version(c, 5, 0).sequence);
    }
}

X11ClickMonitor::~X11ClickMonitor()
{
    stop();
}

void X11ClickMonitor::start()
{
    if (m_inputExtension == 0 || m_isStarted) {
        return;
    }
    m_isStarted = true;
    m_subscription = m_connection.subscribe(*this);
    select(XCB_INPUT_XI_EVENT_MASK_RAW_BUTTON_PRESS | XCB_INPUT_XI_EVENT_MASK_RAW_BUTTON_RELEASE,
           XCB_XFIXES_SELECTION_EVENT_MASK_SET_SELECTION_OWNER);
}

void X11ClickMonitor::stop()
{
    if (!m_isStarted) {
        return;
    }
    m_isStarted = false;
    m_press.reset();
    select(0, 0);
    m_subscription = {};
}

void X11ClickMonitor::handleEvent(const xcb_generic_event_t& event)
{
    const auto type = static_cast<std::uint8_t>(event.response_type & 0x7f);
    if (m_selectionEvent != 0 && type == m_selectionEvent) {
        const auto& notify = reinterpret_cast<const xcb_xfixes_selection_notify_event_t&>(event);
        if (m_press && notify.selection == m_dragSelection && notify.owner != XCB_WINDOW_NONE) {
            m_press->isDrag = true;
        }
        return;
    }
    if (type != XCB_GE_GENERIC ||
        reinterpret_cast<const xcb_ge_generic_event_t&>(event).extension != m_inputExtension) {
        return;
    }
    const auto& raw = reinterpret_cast<const xcb_input_raw_button_press_event_t&>(event);
    if (raw.event_type == XCB_INPUT_RAW_BUTTON_PRESS) {
        handlePress(raw.detail);
    } else if (raw.event_type == XCB_INPUT_RAW_BUTTON_RELEASE) {
        handleRelease(raw.detail);
    }
}

void X11ClickMonitor::handlePress(std::uint32_t button)
{
    const bool isFirst = !m_press || m_press->button == button;
    if (!isFirst || (button != primaryButton && button != secondaryButton) || pointerIsOverOwnWindow()) {
        return;
    }
    m_press = Press{button};
    Q_EMIT pressed();
}

void X11ClickMonitor::handleRelease(std::uint32_t button)
{
    if (!m_press || m_press->button != button) {
        return;
    }
    const bool isDrag = m_press->isDrag;
    m_press.reset();
    if (!isDrag) {
        Q_EMIT clicked();
    }
}

void X11ClickMonitor::select(std::uint32_t buttonEvents, std::uint32_t selectionEvents) const
{
    xcb_connection_t* c = m_connection.get();
    const struct
    {
        xcb_input_event_mask_t header;
        std::uint32_t events;
    } mask{{XCB_INPUT_DEVICE_ALL_MASTER, 1}, buttonEvents};
    xcb_input_xi_select_events(c, m_connection.root(), 1, &mask.header);
    if (m_selectionEvent != 0) {
        xcb_xfixes_select_selection_input(c, m_connection.root(), m_dragSelection, selectionEvents);
    }
    m_connection.flush();
}

bool X11ClickMonitor::pointerIsOverOwnWindow() const
{
    xcb_connection_t* c = m_connection.get();
    xcb_connection_t* toolkitConnection = toolkit::connection();
    // Window managers and trays reparent our windows, so that the root's child may be theirs.
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
