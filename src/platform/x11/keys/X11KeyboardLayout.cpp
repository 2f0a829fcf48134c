#include "X11KeyboardLayout.h"

#include "XkbEvents.h"

#include <utility>

namespace tintwick {

namespace {

std::uint32_t readCurrentGroup(const XcbConnection& connection)
{
    auto* const c = connection.get();
    const XcbReply<xcb_xkb_get_state_reply_t> state(
        xcb_xkb_get_state_reply(c, xcb_xkb_get_state(c, XCB_XKB_ID_USE_CORE_KBD), nullptr));
    return state ? state->lockedGroup : 0;
}

} // namespace

X11KeyboardLayout::X11KeyboardLayout(XcbConnection& connection, XkbKeymap& keymap)
    : m_connection(connection)
    , m_keymap(keymap)
    , m_xkbEvent(listenForXkbEvents(connection))
    , m_currentGroup(m_xkbEvent != 0 ? readCurrentGroup(connection) : 0)
    , m_subscription(connection.subscribe(*this))
{
}

X11KeyboardLayout::~X11KeyboardLayout() = default;

std::optional<QString> X11KeyboardLayout::characterForKey(int keyCode) const
{
    return characterOfSymbol(symbolOf(keyCode));
}

std::optional<QString> X11KeyboardLayout::accentForKey(int keyCode) const
{
    return accentOfSymbol(symbolOf(keyCode));
}

xkb_keysym_t X11KeyboardLayout::symbolOf(int keyCode) const
{
    return m_symbols.symbolOf(keyCode, m_keymap.get(), m_currentGroup);
}

void X11KeyboardLayout::handleEvent(const xcb_generic_event_t& event)
{
    switch (xkbEventKind(event, m_xkbEvent)) {
    case XCB_XKB_NEW_KEYBOARD_NOTIFY:
    case XCB_XKB_MAP_NOTIFY:
        m_hasUnreportedChange = true;
        break;
    case XCB_XKB_STATE_NOTIFY: {
        const auto group = reinterpret_cast<const xcb_xkb_state_notify_event_t&>(event).lockedGroup;
        if (group != m_currentGroup) {
            m_currentGroup = group;
            m_hasUnreportedChange = true;
        }
        break;
    }
    default:
        break;
    }
}

// One new layout arrives as many events, which are reported once.
void X11KeyboardLayout::eventsDrained()
{
    if (std::exchange(m_hasUnreportedChange, false)) {
        m_currentGroup = readCurrentGroup(m_connection);
        Q_EMIT changed();
    }
}

} // namespace tintwick
