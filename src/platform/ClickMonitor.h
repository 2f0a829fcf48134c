#pragma once

#include <functional>

namespace tintwick {

/// Tells of clicks with the primary or the secondary button anywhere on the desktop that do not fall on a window of this
/// process; the tray's icon, where it is such a window, and our menus are ours, and so is every click of a pick. Other
/// programs get theirs all the same. A press with which another program begins to drag something that can be dropped is
/// no click, so that it can be dropped here. While the monitor is off it costs nothing.
class ClickMonitor
{
public:
    /// Asked as soon as a button goes down elsewhere: whether the click is to be told of.
    using PressedElsewhere = std::function<bool()>;
    /// Told when the button is up again. A button that goes down meanwhile makes no click of its own.
    using ClickedElsewhere = std::function<void()>;

    virtual ~ClickMonitor() = default;

    /// Starts telling, or goes on with other handlers. Of a button that is already down nothing is told.
    virtual void start(PressedElsewhere pressed, ClickedElsewhere clicked) = 0;
    /// Does nothing when it is off; may be called from the handlers.
    virtual void stop() = 0;
};

} // namespace tintwick
