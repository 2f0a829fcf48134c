#include "XInput.h"

#include "XcbConnection.h"

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

std::optional<std::uint16_t> masterKeyboard(const XcbConnection& connection)
{
    xcb_connection_t* c = connection.get();
    const XcbReply<xcb_input_xi_get_client_pointer_reply_t> client(
        xcb_input_xi_get_client_pointer_reply(c, xcb_input_xi_get_client_pointer(c, XCB_NONE), nullptr));
    if (!client || client->set == 0) {
        return std::nullopt;
    }
    const XcbReply<xcb_input_xi_query_device_reply_t> devices(
        xcb_input_xi_query_device_reply(c, xcb_input_xi_query_device(c, client->deviceid), nullptr));
    if (!devices || devices->num_infos == 0) {
        return std::nullopt;
    }
    return xcb_input_xi_query_device_infos_iterator(devices.get()).data->attachment;
}

} // namespace tintwick
