#pragma once

#include "XcbConnection.h"

namespace tintwick {

/// The selection that a running compositor owns.
[[nodiscard]] xcb_atom_t compositorSelection(const XcbConnection& connection);

/// Whether translucent pixels blend now.
[[nodiscard]] bool hasCompositor(const XcbConnection& connection);

} // namespace tintwick
