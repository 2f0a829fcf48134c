#pragma once

#include "PixelGrid.h"

#include <QObject>

#include <functional>
#include <memory>

namespace tintwick {

class PickerViewController;
class PickerWindow;
class Platform;
class Preferences;
class ScreenCaptureService;

/// Opens and closes picking mode and hands on the colour that was picked. All three references must outlive it.
class ColorPickerService final : public QObject
{
public:
    using ColorCaptured = std::function<void(const SampledColor&)>;

    ColorPickerService(Platform& platform, ScreenCaptureService& capture, const Preferences& preferences,
                       QObject* parent = nullptr);
    /// A pick that is under way ends without a colour.
    ~ColorPickerService() override;

    /// Called with each picked colour, after picking mode is closed; a new pick may be started from it, and the service
    /// may be destroyed in it. Not called when the user cancels.
    void setOnColorCaptured(ColorCaptured callback) { m_onColorCaptured = std::move(callback); }

    /// Loads the loupe's fonts, for which the first pick would make the user wait.
    void prepare();

    /// Ignored while picking. When the desktop refuses the input, nothing is shown and isPicking() is false afterwards.
    void showPicker();

    /// Ends the pick without a colour; does nothing when there is none.
    void hidePicker();

    [[nodiscard]] bool isPicking() const { return m_pickerWindow != nullptr; }

private:
    Platform& m_platform;
    ScreenCaptureService& m_capture;
    const Preferences& m_preferences;
    ColorCaptured m_onColorCaptured;
    std::unique_ptr<PickerViewController> m_pickerVC;
    // Declared last, because closing it still needs the controller.
    std::unique_ptr<PickerWindow> m_pickerWindow;
};

} // namespace tintwick
