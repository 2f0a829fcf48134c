#include "ColorPickerService.h"

#include "ChosenLook.h"
#include "LoupeRenderer.h"
#include "PickerViewController.h"
#include "PickerWindow.h"
#include "Platform.h"
#include "ScreenGrabber.h"

#include <QPointer>

namespace tintwick {

ColorPickerService::ColorPickerService(Platform& platform, ScreenCaptureService& capture,
                                       const Preferences& preferences, QObject* parent)
    : QObject(parent)
    , m_platform(platform)
    , m_capture(capture)
    , m_preferences(preferences)
{
}

ColorPickerService::~ColorPickerService()
{
    hidePicker();
}

void ColorPickerService::prepare()
{
    const std::vector<Screen> screens = m_platform.screenGrabber().screens();
    static_cast<void>(
        LoupeRenderer().render(chosenLook(m_preferences), screens.empty() ? 1 : screens.front().scale));
}

void ColorPickerService::showPicker()
{
    if (isPicking()) {
        return;
    }
    m_pickerVC = std::make_unique<PickerViewController>(m_platform, m_capture, m_preferences);
    const QPointer<ColorPickerService> service(this);
    m_pickerVC->setOnColorPicked([service](const SampledColor& color) {
        if (!service) {
            return;
        }
        service->hidePicker();
        // A copy, because the callback may destroy the service or give it another callback.
        if (const ColorCaptured onColorCaptured = service->m_onColorCaptured) {
            onColorCaptured(color);
        }
    });
    m_pickerVC->setOnCancelled([service] {
        if (service) {
            service->hidePicker();
        }
    });
    m_pickerWindow = std::make_unique<PickerWindow>(m_platform.screenGrabber(), m_platform.pickingInput());
    if (m_pickerWindow->open(*m_pickerVC) == PickingInput::Outcome::Refused) {
        hidePicker();
    }
}

void ColorPickerService::hidePicker()
{
    m_pickerWindow.reset();
    m_pickerVC.reset();
}

} // namespace tintwick
