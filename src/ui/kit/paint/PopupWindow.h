#pragma once

class QWidget;

namespace tintwick {

/// Whether the desktop blends translucent windows; until told otherwise it is taken to do so.
void setDesktopBlends(bool blends);

/// Gives a window without a frame corners of `radius` points: soft ones where the desktop blends windows, else cut ones.
/// To be called whenever its size has changed.
void roundWindowCorners(QWidget& window, double radius);

} // namespace tintwick
