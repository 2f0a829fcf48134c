#pragma once

#include <QSize>
#include <QString>

namespace tintwick {

/// A corner of the area without bars.
struct ScreenCorner
{
    bool isLeft = false;
    bool isBottom = false;

    friend bool operator==(const ScreenCorner&, const ScreenCorner&) = default;
};

/// Asks sway to place windows of ours as it maps them, which a Wayland client cannot do itself.
class SwayRules final
{
public:
    /// Lets the window with this title and size come up in the corner. Does nothing under other compositors.
    void placeInCorner(const QString& title, QSize window, const ScreenCorner& corner);

private:
    ScreenCorner m_corner;
    /// Counts the changes of the corner.
    int m_change = 0;
};

} // namespace tintwick
