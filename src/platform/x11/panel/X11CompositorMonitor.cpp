#include "X11CompositorMonitor.h"

#include "X11Compositor.h"

#include <xcb/xfixes.h>

namespace tintwick {

X11CompositorMonitor::X11CompositorMonitor(XcbConnection& connection)
    : m_connection(connection)
    , m_selection(compositorSelection(connection))
{
    xcb_connection_t* c = m_connection.get();
    const xcb_query_extension_reply_t* fixes = xcb_get_extension_data(c, &xcb_xfixes_id);
    if (fixes && fixes->present != 0) {
        m_selectionEvent = static_cast<std::uint8_t>(fixes->first_event + XCB_XFIXES_SELECTION_NOTIFY);
        // The server refuses XFixes requests of a client that has not asked for the version.
        xcb_discard_reply(c, xcb_xfixes_query_version(c, 5, 0).sequence);
    }
}

X11CompositorMonitor::~X11CompositorMonitor() = default;

void X11CompositorMonitor::start()
{
    if (m_selectionEvent == 0 || m_receiver) {
        return;
    }
    xcb_connection_t* c = m_connection.get();
    m_subscription = m_connection.subscribe(*this);
    m_receiver = XcbWindow::withNewId(c);
    xcb_create_window(c, XCB_COPY_FROM_PARENT, m_receiver.id(), m_connection.root(), 0, 0, 1, 1, 0,
                      XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, 0, nullptr);
    xcb_xfixes_select_selection_input(c, m_receiver.id(), m_selection,
                                      XCB_XFIXES_SELECTION_EVENT_MASK_SET_SELECTION_OWNER |
                                          XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_WINDOW_DESTROY |
                                          XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_CLIENT_CLOSE);
    m_connection.flush();
}

void X11CompositorMonitor::stop()
{
    m_subscription = {};
    m_receiver = {};
    m_connection.flush();
}

void X11CompositorMonitor::handleEvent(const xcb_generic_event_t& event)
{
    if ((event.response_type & 0x7f) == m_selectionEvent &&
        reinterpret_cast<const xcb_xfixes_selection_notify_event_t&>(event).selection == m_selection) {
        Q_EMIT changed();
    }
}

} // namespace tintwick
