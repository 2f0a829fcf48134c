#include "X11Compositor.h"

#include <string>

namespace tintwick {

xcb_atom_t compositorSelection(const XcbConnection& connection)
{
    return connection.atom("_NET_WM_CM_S" + std::to_string(connection.screenNumber()));
}

bool hasCompositor(const XcbConnection& connection)
{
    xcb_connection_t* c = connection.get();
    const auto cookie = xcb_get_selection_owner(c, compositorSelection(connection));
    const XcbReply<xcb_get_selection_owner_reply_t> owner(xcb_get_selection_owner_reply(c, cookie, nullptr));
    return owner && owner->owner != XCB_WINDOW_NONE;
}

} // namespace tintwick
