#pragma once

#include "ScreenGrabber.h"
#include "XcbConnection.h"

#include <vector>

namespace tintwick {

/// The monitors as RandR tells them, the primary one first, each with the scale the toolkit uses there. Without RandR
/// the root window is the one monitor.
[[nodiscard]] std::vector<Screen> queryScreens(const XcbConnection& connection);

} // namespace tintwick
