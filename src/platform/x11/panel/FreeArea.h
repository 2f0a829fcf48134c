#pragma once

#include <QRect>
#include <QSize>

#include <limits>
#include <vector>

namespace tintwick {

// Lengths and places are in pixels from the top left of the root window.

/// The space that a bar reserves at one edge of the root window, over a part of that edge.
struct Strut
{
    enum class Edge { Left, Right, Top, Bottom };

    Edge edge = Edge::Top;
    /// From the edge of the root window inwards.
    int depth = 0;
    /// The first and the last pixel along the edge.
    int start = 0;
    int end = std::numeric_limits<int>::max();

    friend bool operator==(const Strut&, const Strut&) = default;
};

/// The part of a monitor that no bar reserves. A strut that would take the whole monitor belongs to a bar of another one
/// and is ignored. `workArea` is the window manager's, which is one rectangle for all monitors: it counts at the edges
/// where it is further inside than every strut. Empty where the window manager does not report one.
[[nodiscard]] QRect freeArea(const QRect& monitor, QSize root, const QRect& workArea,
                             const std::vector<Strut>& struts);

} // namespace tintwick
