#pragma once

#include "XcbConnection.h"

// The header names a member "explicit".
#define explicit explicit_
#include <xcb/xkb.h>
#undef explicit

#include <cstdint>

namespace tintwick {

/// Asks the server to tell the connection of new keymaps, and of every change of the current group. Returns the number
/// by which these events are known, or 0 when the server has no XKB.
[[nodiscard]] std::uint8_t listenForXkbEvents(const XcbConnection& connection);

/// The kind of an XKB event (XCB_XKB_MAP_NOTIFY, ...), all of which come under one number; -1 for other events.
[[nodiscard]] int xkbEventKind(const xcb_generic_event_t& event, std::uint8_t xkbEvent);

} // namespace tintwick
