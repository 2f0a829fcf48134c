#include "X11Compositor.h"

#include <string>

namespace tintwick {

xcb_atom_t compositorSelection(const XcbConnection& connection)
{
    return connection.atom("_NET_WM_CM_S" + std::to_string(connection.screenNumber()));
}

bool hasCompositor(const XcbConnection& connection)
{
    return connection.selectionOwner(compositorSelection(connection)) != XCB_NONE;
}

} // namespace tintwick
