#pragma once

#include "CaptureOutcome.h"
#include "OutputPicture.h"

#include <functional>
#include <memory>
#include <vector>

namespace tintwick {

class WaylandOutput;

/// One way to take pictures of the monitors.
class ScreenCapture
{
public:
    /// One for each monitor that was asked for, in that order. Empty unless the outcome is Taken; null for a monitor that
    /// has vanished.
    using Pictures = std::vector<std::unique_ptr<OutputPicture>>;
    using Done = std::function<void(CaptureOutcome outcome, Pictures pictures)>;

    virtual ~ScreenCapture() = default;

    /// Takes a picture of each monitor, of all at once, without the pointer. Calls `done` once, from the event loop; not
    /// after cancel(). Call only when no capture runs. The outputs are used during this call only.
    virtual void start(const std::vector<WaylandOutput*>& outputs, Done done) = 0;
    /// Ends a capture that runs.
    virtual void cancel() = 0;
};

} // namespace tintwick
