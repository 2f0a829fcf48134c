#pragma once

#include <functional>

namespace tintwick {

/// Tells of presses of the primary or the secondary button anywhere on the desktop that do not fall on a window of this
/// process; the tray's icon, where it is such a window, and our menus are ours. While it is off it costs nothing.
class ClickMonitor
{
public:
    using PressedElsewhere = std::function<void()>;

    virtual ~ClickMonitor() = default;

    /// Starts telling, or goes on with another handler. Presses during a pick are told of too.
    virtual void start(PressedElsewhere handler) = 0;
    /// Does nothing when it is off; may be called from the handler.
    virtual void stop() = 0;
};

} // namespace tintwick
