#pragma once

#include "Coordinates.h"
#include "PixelGrid.h"
#include "ScreenGrabber.h"

namespace tintwick::test {

/// An image of width × height pixels in which the pixel (x, y) has the bytes blue = 10 + x, green = 10 + y, red = 200,
/// alpha = 255; so that a misread byte or row shows.
[[nodiscard]] ScreenImage numberedImage(int width, int height);

/// What a screen of endless size would show in the rectangle, at a density in pixels per point. The pixel (x, y), which
/// may be negative, is worldColor(x, y).
[[nodiscard]] ScreenImage worldImage(const DesktopRect& rect, int density = 1);

/// Different for any two pixels closer than 256 to each other in both directions.
[[nodiscard]] SampledColor worldColor(int x, int y);

} // namespace tintwick::test
