#pragma once

#include <QImage>
#include <QRect>
#include <QSize>

#include <vector>

namespace tintwick {

/// Where one monitor is on the desktop.
struct MonitorPlace
{
    /// In logical units of the desktop.
    QRect logical;
    /// In physical pixels, as the user sees them.
    QSize pixels;
};

/// Cuts a picture of the whole desktop, in pixels of the monitor with the largest scale, into one picture per monitor in
/// its own physical pixels (Format_RGB32). Empty when the size of the picture is not that of these monitors.
[[nodiscard]] std::vector<QImage> cutDesktopPicture(const QImage& desktop,
                                                    const std::vector<MonitorPlace>& monitors);

} // namespace tintwick
