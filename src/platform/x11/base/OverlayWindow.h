#pragma once

#include <xcb/xcb.h>

#include <string_view>

namespace tintwick {

class XcbConnection;

/// Makes an unmapped, unmanaged window of ours one that lies above others and takes no input: names it, asks compositors
/// for neither shadow nor fading, and lets clicks through.
void makeOverlay(const XcbConnection& connection, xcb_window_t window, std::string_view title);

} // namespace tintwick
