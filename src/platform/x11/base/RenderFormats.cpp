#include "RenderFormats.h"

#include <xcb/xcb_renderutil.h>

#include <algorithm>

namespace tintwick {

xcb_render_pictformat_t formatOfDepth(xcb_connection_t* connection, std::uint8_t depth)
{
    const auto standard = depth == translucentDepth ? XCB_PICT_STANDARD_ARGB_32 : XCB_PICT_STANDARD_RGB_24;
    const xcb_render_pictforminfo_t* info =
        xcb_render_util_find_standard_format(xcb_render_util_query_formats(connection), standard);
    return info ? info->id : XCB_NONE;
}

const xcb_render_pictforminfo_t* formatOfVisual(xcb_connection_t* connection, xcb_visualid_t visual)
{
    const xcb_render_query_pict_formats_reply_t* formats = xcb_render_util_query_formats(connection);
    const xcb_render_pictvisual_t* found = xcb_render_util_find_visual_format(formats, visual);
    if (!found) {
        return nullptr;
    }
    const auto* begin = xcb_render_query_pict_formats_formats(formats);
    const auto* end = begin + xcb_render_query_pict_formats_formats_length(formats);
    const auto* info = std::find_if(begin, end, [&](const xcb_render_pictforminfo_t& candidate) {
        return candidate.id == found->format;
    });
    return info == end ? nullptr : info;
}

} // namespace tintwick
