#pragma once

#include "PickingInput.h"

namespace tintwick {

class PickerViewController;
class ScreenGrabber;

/// Picking mode's hold on the desktop: while it is open, captures are prepared for and all input goes to the controller.
/// It shows and stores no picture of its own, so it costs the same on every screen. Destroying it closes it.
class PickerWindow final
{
public:
    PickerWindow(ScreenGrabber& grabber, PickingInput& input);
    ~PickerWindow();
    PickerWindow(const PickerWindow&) = delete;
    PickerWindow& operator=(const PickerWindow&) = delete;

    /// Brings the controller up; it must live until close(). When the input is refused, nothing has been shown, and
    /// everything is as before.
    [[nodiscard]] PickingInput::Outcome open(PickerViewController& controller);

    /// Takes the controller's loupe away and gives the desktop back. Does nothing when not open.
    void close();

private:
    ScreenGrabber& m_grabber;
    PickingInput& m_input;
    PickerViewController* m_controller = nullptr;
};

} // namespace tintwick
