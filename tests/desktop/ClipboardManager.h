#pragma once

#include "support/DesktopConnection.h"
#include "support/PrivateDesktop.h"
#include "support/TestWindow.h"

namespace tintwick {

/// Stands for the clipboard manager of a desktop.
class ClipboardManager final
{
public:
    explicit ClipboardManager(const PrivateDesktop& desktop)
        : m_connection(desktop.display())
        , m_window(m_connection, {})
    {
        xcb_set_selection_owner(m_connection.get(), m_window.id(), m_connection.atom("CLIPBOARD_MANAGER"),
                                XCB_CURRENT_TIME);
        m_connection.sync();
        m_connection.setEventHandler(m_window.id(), [this](const xcb_generic_event_t& event) {
            if ((event.response_type & 0x7fU) == XCB_SELECTION_REQUEST) {
                answer(reinterpret_cast<const xcb_selection_request_event_t&>(event));
            }
        });
    }

    /// Whether a program has asked it to keep the content of the clipboard.
    [[nodiscard]] bool isAskedToSave()
    {
        m_connection.dispatchEvents();
        return m_isAskedToSave;
    }

private:
    void answer(const xcb_selection_request_event_t& request)
    {
        m_isAskedToSave = m_isAskedToSave || request.target == m_connection.atom("SAVE_TARGETS");
        xcb_selection_notify_event_t notify{};
        notify.response_type = XCB_SELECTION_NOTIFY;
        notify.requestor = request.requestor;
        notify.selection = request.selection;
        notify.target = request.target;
        notify.property = request.property;
        xcb_send_event(m_connection.get(), 0, request.requestor, XCB_EVENT_MASK_NO_EVENT,
                       reinterpret_cast<const char*>(&notify));
        m_connection.sync();
    }

    DesktopConnection m_connection;
    TestWindow m_window;
    bool m_isAskedToSave = false;
};

} // namespace tintwick
