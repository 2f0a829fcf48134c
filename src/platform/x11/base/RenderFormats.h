#pragma once

#include <xcb/render.h>

#include <cstdint>

namespace tintwick {

/// The depth of pictures with an alpha channel.
inline constexpr std::uint8_t translucentDepth = 32;

/// The standard format of pictures of 24 or 32 bits; none when the server lacks it.
[[nodiscard]] xcb_render_pictformat_t formatOfDepth(xcb_connection_t* connection, std::uint8_t depth);

/// Null when the visual has no Render format. Valid until the connection closes.
[[nodiscard]] const xcb_render_pictforminfo_t* formatOfVisual(xcb_connection_t* connection,
                                                              xcb_visualid_t visual);

} // namespace tintwick
