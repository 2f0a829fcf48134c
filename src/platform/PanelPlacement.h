#pragma once

#include <QList>
#include <QRect>
#include <QSize>

#include <optional>

namespace tintwick {

// Lengths and places are in points of the user interface, from the top left of the desktop.

/// A monitor.
struct PanelScreen
{
    QRect frame;
    /// The area without bars and docks.
    QRect available;
};

/// The least distance between the panel and the left or right edge of the available area.
inline constexpr int panelMargin = 8;

/// Returns the place of a panel of the given size; its height is reduced where the monitor has less room. The panel is
/// centred below the anchor, else above it, else beside it. The anchor is the tray icon or the pixel that was clicked.
/// Without an anchor the place is the top right of the primary monitor, which is the first one; without a monitor it is
/// (0, 0).
[[nodiscard]] QRect placePanel(const std::optional<QRect>& anchor, const QList<PanelScreen>& screens,
                               QSize panel);

} // namespace tintwick
