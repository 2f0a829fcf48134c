#include "X11Tray.h"

#include <xcb/xfixes.h>

#include <string>

namespace tintwick {

namespace {

/// Red, green and blue of symbols, errors, warnings and successes, 16 bits each.
constexpr std::uint32_t componentCount = 12;

QColor colorOf(const std::uint32_t* components)
{
    const auto component = [&](int i) { return static_cast<ushort>(components[i]); };
    return QColor::fromRgba64(component(0), component(1), component(2));
}

} // namespace

X11Tray::X11Tray(XcbConnection& connection)
    : m_connection(connection)
    , m_selection(connection.atom("_NET_SYSTEM_TRAY_S" + std::to_string(connection.screenNumber())))
    , m_colors(connection.atom("_NET_SYSTEM_TRAY_COLORS"))
    , m_subscription(connection.subscribe(*this))
{
    xcb_connection_t* c = m_connection.get();
    const xcb_query_extension_reply_t* fixes = xcb_get_extension_data(c, &xcb_xfixes_id);
    if (fixes && fixes->present != 0) {
        m_selectionEvent = static_cast<std::uint8_t>(fixes->first_event + XCB_XFIXES_SELECTION_NOTIFY);
        // The server refuses XFixes requests of a client that has not asked for the version.
        xcb_discard_reply(c, xcb_xfixes_query_version(c, 5, 0).sequence);
        xcb_xfixes_select_selection_input(c, m_connection.root(), m_selection,
                                          XCB_XFIXES_SELECTION_EVENT_MASK_SET_SELECTION_OWNER |
                                              XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_WINDOW_DESTROY |
                                              XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_CLIENT_CLOSE);
    }
    followOwner();
}

void X11Tray::handleEvent(const xcb_generic_event_t& event)
{
    const auto type = static_cast<std::uint8_t>(event.response_type & 0x7f);
    if (m_selectionEvent != 0 && type == m_selectionEvent) {
        if (reinterpret_cast<const xcb_xfixes_selection_notify_event_t&>(event).selection == m_selection) {
            followOwner();
        }
    } else if (type == XCB_PROPERTY_NOTIFY) {
        const auto& change = reinterpret_cast<const xcb_property_notify_event_t&>(event);
        if (change.window == m_owner && change.atom == m_colors) {
            readColor();
        }
    }
}

void X11Tray::followOwner()
{
    xcb_connection_t* c = m_connection.get();
    const XcbReply<xcb_get_selection_owner_reply_t> owner(
        xcb_get_selection_owner_reply(c, xcb_get_selection_owner(c, m_selection), nullptr));
    m_owner = owner ? owner->owner : xcb_window_t{XCB_WINDOW_NONE};
    if (m_owner != XCB_WINDOW_NONE) {
        constexpr std::uint32_t events = XCB_EVENT_MASK_PROPERTY_CHANGE;
        xcb_change_window_attributes(c, m_owner, XCB_CW_EVENT_MASK, &events);
    }
    readColor();
}

void X11Tray::readColor()
{
    xcb_connection_t* c = m_connection.get();
    std::optional<QColor> color;
    if (m_owner != XCB_WINDOW_NONE) {
        const XcbReply<xcb_get_property_reply_t> reply(xcb_get_property_reply(
            c, xcb_get_property(c, 0, m_owner, m_colors, XCB_ATOM_CARDINAL, 0, componentCount), nullptr));
        if (reply && reply->format == 32 && reply->value_len == componentCount) {
            color = colorOf(static_cast<const std::uint32_t*>(xcb_get_property_value(reply.get())));
        }
    }
    if (m_symbolColor != color) {
        m_symbolColor = color;
        Q_EMIT symbolColorChanged();
    }
}

} // namespace tintwick
