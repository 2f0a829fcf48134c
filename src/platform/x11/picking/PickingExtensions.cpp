#include "PickingExtensions.h"

#include "XcbConnection.h"

#include <xcb/composite.h>
#include <xcb/damage.h>
#include <xcb/randr.h>
#include <xcb/render.h>
#include <xcb/shape.h>
#include <xcb/xcb_renderutil.h>
#include <xcb/xfixes.h>

namespace tintwick {

PickingExtensions::PickingExtensions(const XcbConnection& connection)
{
    xcb_connection_t* c = connection.get();
    for (xcb_extension_t* extension :
         {&xcb_composite_id, &xcb_damage_id, &xcb_randr_id, &xcb_xfixes_id, &xcb_shape_id, &xcb_render_id}) {
        xcb_prefetch_extension_data(c, extension);
    }
    const auto find = [c](xcb_extension_t& extension) -> const xcb_query_extension_reply_t* {
        const xcb_query_extension_reply_t* data = xcb_get_extension_data(c, &extension);
        return data && data->present != 0 ? data : nullptr;
    };
    const auto firstEvent = [&find](xcb_extension_t& extension) -> std::uint8_t {
        const xcb_query_extension_reply_t* data = find(extension);
        return data ? data->first_event : 0;
    };
    canReadBelowLoupe =
        find(xcb_composite_id) && find(xcb_damage_id) && find(xcb_shape_id) && find(xcb_xfixes_id);
    randrEvent = firstEvent(xcb_randr_id);
    xfixesEvent = firstEvent(xcb_xfixes_id);
    damageEvent = firstEvent(xcb_damage_id);
    shapeEvent = firstEvent(xcb_shape_id);
    if (canReadBelowLoupe) {
        xcb_discard_reply(c, xcb_composite_query_version(c, 0, 4).sequence);
        xcb_discard_reply(c, xcb_damage_query_version(c, 1, 1).sequence);
        xcb_discard_reply(c, xcb_xfixes_query_version(c, 5, 0).sequence);
    }
    if (randrEvent != 0) {
        xcb_discard_reply(c, xcb_randr_query_version(c, 1, 5).sequence);
    }
    // The library caches the replies, so the first grab does not wait for them.
    static_cast<void>(xcb_render_util_query_formats(c));
}

} // namespace tintwick
