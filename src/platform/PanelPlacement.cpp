#include "PanelPlacement.h"

#include <QPoint>

#include <algorithm>

namespace tintwick {

namespace {

// right() and bottom() of QRect are the last pixel inside.
int rightEdge(const QRect& rect)
{
    return rect.x() + rect.width();
}

int bottomEdge(const QRect& rect)
{
    return rect.y() + rect.height();
}

/// Clamps a value to a range; returns the lower bound when the range is empty.
int bounded(int value, int lowest, int highest)
{
    return std::max(lowest, std::min(value, highest));
}

int squaredDistance(const QRect& rect, QPoint point)
{
    const int dx = point.x() - bounded(point.x(), rect.x(), rightEdge(rect) - 1);
    const int dy = point.y() - bounded(point.y(), rect.y(), bottomEdge(rect) - 1);
    return dx * dx + dy * dy;
}

const PanelScreen& nearestScreen(const QList<PanelScreen>& screens, QPoint point)
{
    return *std::min_element(
        screens.begin(), screens.end(), [&](const PanelScreen& one, const PanelScreen& other) {
            return squaredDistance(one.frame, point) < squaredDistance(other.frame, point);
        });
}

QPoint besideAnchor(const QRect& anchor, const PanelScreen& screen, QSize panel)
{
    const QRect& room = screen.available;
    const int lowestX = room.x() + panelMargin;
    const int highestX = rightEdge(room) - panel.width() - panelMargin;
    const int centredX = bounded(anchor.x() + anchor.width() / 2 - panel.width() / 2, lowestX, highestX);

    // A bar that reserves its strip of the monitor counts as the anchor, even if the icon is smaller.
    const int below = std::max(bottomEdge(anchor), room.y());
    if (below + panel.height() <= bottomEdge(room)) {
        return {centredX, below};
    }
    const int above = std::min(anchor.y(), bottomEdge(room)) - panel.height();
    if (above >= room.y()) {
        return {centredX, above};
    }
    const bool isOnTheLeft = anchor.center().x() < screen.frame.center().x();
    const int sideways = isOnTheLeft ? rightEdge(anchor) : anchor.x() - panel.width();
    return {bounded(sideways, lowestX, highestX), bounded(anchor.y() + (anchor.height() - panel.height()) / 2,
                                                          room.y(), bottomEdge(room) - panel.height())};
}

} // namespace

QRect placePanel(const std::optional<QRect>& anchor, const QList<PanelScreen>& screens, QSize panel)
{
    if (screens.isEmpty()) {
        return {QPoint(0, 0), panel};
    }
    const auto fitted = [panel](const PanelScreen& screen) {
        return QSize(panel.width(), std::min(panel.height(), screen.available.height()));
    };
    if (anchor) {
        const PanelScreen& screen = nearestScreen(screens, anchor->center());
        return {besideAnchor(*anchor, screen, fitted(screen)), fitted(screen)};
    }
    const PanelScreen& screen = screens.first();
    const QRect& room = screen.available;
    const int x = std::max(room.x() + panelMargin, rightEdge(room) - panel.width() - panelMargin);
    return {QPoint(x, room.y()), fitted(screen)};
}

} // namespace tintwick
