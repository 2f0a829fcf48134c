#pragma once

#include <QList>
#include <QPoint>
#include <QRect>
#include <QSize>

#include <optional>

namespace tintwick {

// All in the points of the user interface, origin at the top left of the desktop.

/// One monitor: all of it, and what bars and docks leave of it.
struct PanelScreen
{
    QRect frame;
    QRect available;
};

/// What is known of the place where the panel was asked for.
struct PanelAnchor
{
    /// The tray icon, where the tray tells its place.
    std::optional<QRect> statusItem;
    /// Where the pointer clicked it, where the tray does not.
    std::optional<QPoint> click;
};

/// How far the panel stays from the left and the right edge of what bars leave of the screen.
inline constexpr int panelMargin = 8;

/// The place of a panel of the given size, which is less high only where its screen has no room for it. It hangs centred
/// from the lower edge of the anchor; where the screen ends before it does it stands on the upper edge, and where neither
/// has room it comes out sideways. Without an anchor it is at the top right of the primary screen, which is the first
/// one; without a screen at (0, 0).
[[nodiscard]] QRect placePanel(const PanelAnchor& anchor, const QList<PanelScreen>& screens, QSize panel);

} // namespace tintwick
