#include "XkbKeymap.h"

#include "XkbEvents.h"

#include <xkbcommon/xkbcommon-x11.h>

#include <utility>

namespace tintwick {

XkbKeymap::XkbKeymap(XcbConnection& connection)
    : m_connection(connection)
    , m_xkbEvent(listenForXkbEvents(connection))
    , m_context(xkb_context_new(XKB_CONTEXT_NO_DEFAULT_INCLUDES))
{
}

XkbKeymap::~XkbKeymap() = default;

xkb_keymap* XkbKeymap::get()
{
    // The server closes the connection of a client that sends a request of an extension it lacks.
    if (m_xkbEvent == 0 || !std::exchange(m_isOutdated, false)) {
        return m_keymap.get();
    }
    if (!m_subscription) {
        m_subscription = m_connection.subscribe(*this);
    }
    const auto device = xkb_x11_get_core_keyboard_device_id(m_connection.get());
    m_state.reset();
    m_keymap.reset(device < 0 ? nullptr
                              : xkb_x11_keymap_new_from_device(m_context.get(), m_connection.get(), device,
                                                               XKB_KEYMAP_COMPILE_NO_FLAGS));
    if (m_keymap) {
        m_state.reset(xkb_state_new(m_keymap.get()));
    }
    return m_keymap.get();
}

xkb_keysym_t XkbKeymap::keysym(xkb_keycode_t keycode, std::uint32_t effectiveModifiers, std::uint32_t group)
{
    if (!get() || !m_state) {
        return XKB_KEY_NoSymbol;
    }
    xkb_state_update_mask(m_state.get(), effectiveModifiers, 0, 0, group, 0, 0);
    return xkb_state_key_get_one_sym(m_state.get(), keycode);
}

char32_t XkbKeymap::character(xkb_keycode_t keycode, std::uint32_t effectiveModifiers, std::uint32_t group)
{
    return xkb_keysym_to_utf32(keysym(keycode, effectiveModifiers, group));
}

void XkbKeymap::handleEvent(const xcb_generic_event_t& event)
{
    const int kind = xkbEventKind(event, m_xkbEvent);
    if (kind == XCB_XKB_NEW_KEYBOARD_NOTIFY || kind == XCB_XKB_MAP_NOTIFY) {
        m_isOutdated = true;
    }
}

} // namespace tintwick
