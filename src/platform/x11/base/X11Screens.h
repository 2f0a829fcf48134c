#pragma once

#include "XcbConnection.h"

#include <QRect>

#include <vector>

namespace tintwick {

/// One monitor of the X server.
struct X11Screen
{
    /// In root coordinates, that is in physical pixels.
    QRect frame;
    /// Physical pixels per point, as the toolkit uses it on this monitor.
    double scale = 1;

    friend bool operator==(const X11Screen&, const X11Screen&) = default;
};

/// The monitors that RandR reports, the primary one first. Without RandR the root window is the one monitor. Empty when
/// the server does not answer.
[[nodiscard]] std::vector<X11Screen> queryScreens(const XcbConnection& connection);

/// Of the root window: 10 on a screen with 30 bits per pixel.
[[nodiscard]] int bitsPerChannel(const XcbConnection& connection);

} // namespace tintwick
