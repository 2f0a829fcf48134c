#pragma once

class QWidget;

namespace tintwick {

/// Sets whether the desktop blends translucent windows. The default is true.
void setDesktopBlends(bool blends);
[[nodiscard]] bool desktopBlends();

/// Rounds the corners of a frameless window with `radius` points. Where the desktop does not blend windows, a mask cuts them. To be
/// called after each change of size.
void roundWindowCorners(QWidget& window, double radius);
/// The same, after each change of size.
void keepCornersRounded(QWidget& window, double radius);

} // namespace tintwick
