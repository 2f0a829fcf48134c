#include "XkbEvents.h"

#include <xkbcommon/xkbcommon-x11.h>

namespace tintwick {

std::uint8_t listenForXkbEvents(const XcbConnection& connection)
{
    std::uint8_t firstEvent = 0;
    if (xkb_x11_setup_xkb_extension(connection.get(), XKB_X11_MIN_MAJOR_XKB_VERSION,
                                    XKB_X11_MIN_MINOR_XKB_VERSION, XKB_X11_SETUP_XKB_EXTENSION_NO_FLAGS,
                                    nullptr, nullptr, &firstEvent, nullptr) == 0) {
        return 0;
    }

    constexpr std::uint16_t events = XCB_XKB_EVENT_TYPE_NEW_KEYBOARD_NOTIFY | XCB_XKB_EVENT_TYPE_MAP_NOTIFY |
                                     XCB_XKB_EVENT_TYPE_STATE_NOTIFY;
    constexpr std::uint16_t allMapParts =
        XCB_XKB_MAP_PART_KEY_TYPES | XCB_XKB_MAP_PART_KEY_SYMS | XCB_XKB_MAP_PART_MODIFIER_MAP |
        XCB_XKB_MAP_PART_EXPLICIT_COMPONENTS | XCB_XKB_MAP_PART_KEY_ACTIONS | XCB_XKB_MAP_PART_KEY_BEHAVIORS |
        XCB_XKB_MAP_PART_VIRTUAL_MODS | XCB_XKB_MAP_PART_VIRTUAL_MOD_MAP;
    xcb_xkb_select_events_details_t details{};
    details.affectNewKeyboard = XCB_XKB_NKN_DETAIL_KEYCODES;
    details.newKeyboardDetails = XCB_XKB_NKN_DETAIL_KEYCODES;
    details.affectState = XCB_XKB_STATE_PART_GROUP_LOCK;
    details.stateDetails = XCB_XKB_STATE_PART_GROUP_LOCK;
    xcb_xkb_select_events_aux(connection.get(), XCB_XKB_ID_USE_CORE_KBD, events, 0, 0, allMapParts,
                              allMapParts, &details);
    return firstEvent;
}

int xkbEventKind(const xcb_generic_event_t& event, std::uint8_t xkbEvent)
{
    constexpr std::uint8_t typeWithoutSentFlag = 0x7F;
    if (xkbEvent == 0 || (event.response_type & typeWithoutSentFlag) != xkbEvent) {
        return -1;
    }
    return event.pad0;
}

} // namespace tintwick
