#include "TranslucentVisual.h"

namespace tintwick {

xcb_visualid_t translucentVisual(const xcb_screen_t& screen)
{
    for (auto depth = xcb_screen_allowed_depths_iterator(&screen); depth.rem > 0; xcb_depth_next(&depth)) {
        if (depth.data->depth != 32) {
            continue;
        }
        for (auto visual = xcb_depth_visuals_iterator(depth.data); visual.rem > 0;
             xcb_visualtype_next(&visual)) {
            if (visual.data->_class == XCB_VISUAL_CLASS_TRUE_COLOR && visual.data->red_mask == 0xff0000) {
                return visual.data->visual_id;
            }
        }
    }
    return screen.root_visual;
}

} // namespace tintwick
