#pragma once

#include <xcb/xcb.h>

namespace tintwick {

/// The visual for windows with premultiplied BGRA pixels; the root's visual where the screen has none.
[[nodiscard]] xcb_visualid_t translucentVisual(const xcb_screen_t& screen);

} // namespace tintwick
