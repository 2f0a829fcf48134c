#pragma once

#include <xcb/xproto.h>

namespace tintwick {

/// Whether the window was created by the client with this connection setup. Each client has its own range of ids.
[[nodiscard]] inline bool isFromClient(xcb_window_t window, const xcb_setup_t& client)
{
    return (window & ~client.resource_id_mask) == client.resource_id_base;
}

} // namespace tintwick
