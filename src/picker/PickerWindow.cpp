#include "PickerWindow.h"

#include "PickerViewController.h"
#include "ScreenGrabber.h"

namespace tintwick {

PickerWindow::PickerWindow(ScreenGrabber& grabber, PickingInput& input)
    : m_grabber(grabber)
    , m_input(input)
{
}

PickerWindow::~PickerWindow()
{
    close();
}

PickingInput::Outcome PickerWindow::open(PickerViewController& controller)
{
    // The session comes first: it may keep a picture of the screen, and nothing of ours belongs in it.
    m_grabber.beginSession([&controller](const DesktopRect& changed) { controller.contentChanged(changed); });
    const PickingInput::Outcome outcome = m_input.begin(controller);
    if (outcome == PickingInput::Outcome::Refused) {
        m_grabber.endSession();
        return outcome;
    }
    m_controller = &controller;
    controller.viewDidAppear();
    return outcome;
}

void PickerWindow::close()
{
    if (!m_controller) {
        return;
    }
    m_controller->viewWillDisappear();
    m_controller = nullptr;
    m_input.end();
    m_grabber.endSession();
}

} // namespace tintwick
