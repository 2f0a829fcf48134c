#pragma once

#include <xcb/xproto.h>

namespace tintwick {

/// Whether the window was made by the client whose connection has this setup: its ids are a range of their own.
[[nodiscard]] inline bool isFromClient(xcb_window_t window, const xcb_setup_t& client)
{
    return (window & ~client.resource_id_mask) == client.resource_id_base;
}

} // namespace tintwick
