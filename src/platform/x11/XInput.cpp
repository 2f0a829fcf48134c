#include "platform/x11/XInput.h"

#include "platform/x11/XcbConnection.h"

#include <xcb/xinput.h>

namespace tintwick {

std::uint8_t openInputExtension(const XcbConnection& connection)
{
    xcb_connection_t* c = connection.get();
    const xcb_query_extension_reply_t* extension = xcb_get_extension_data(c, &xcb_input_id);
    if (!extension || extension->present == 0) {
        return 0;
    }
    xcb_discard_reply(c, xcb_input_xi_query_version(c, 2, 2).sequence);
    return extension->major_opcode;
}

} // namespace tintwick
