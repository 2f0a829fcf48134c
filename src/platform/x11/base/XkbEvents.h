#pragma once

#include "XcbConnection.h"

// The header has a member with the name "explicit".
#define explicit explicit_
#include <xcb/xkb.h>
#undef explicit

#include <cstdint>

namespace tintwick {

/// Selects events for new keymaps and for every change of the current group. Returns the event code of XKB events, or 0
/// when the server has no XKB.
[[nodiscard]] std::uint8_t listenForXkbEvents(const XcbConnection& connection);

/// The kind of an XKB event (XCB_XKB_MAP_NOTIFY, ...), since all share one event code; -1 for other events.
[[nodiscard]] int xkbEventKind(const xcb_generic_event_t& event, std::uint8_t xkbEvent);

} // namespace tintwick
