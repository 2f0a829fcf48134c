#pragma once

#include "View.h"

namespace tintwick {

class AppState;
class PopUpPicker;
class Preferences;
class ScreenGrabber;
struct RecorderServices;

/// The shortcuts, the loupe, the format of copies and the permission to read the screen. A change is stored at once and
/// holds from the next pick on.
class GeneralSettingsTab final : public View
{
    Q_OBJECT

public:
    /// Alerts come up over `panel`. All must outlive the view.
    GeneralSettingsTab(AppState& appState, Preferences& preferences, const RecorderServices& recording,
                       const ScreenGrabber& grabber, QWidget& panel);

private:
    [[nodiscard]] static QWidget* shortcutsSection(const RecorderServices& recording, QWidget& panel);
    [[nodiscard]] QWidget* scopeSection();
    [[nodiscard]] QWidget* copyFormatSection();
    [[nodiscard]] QWidget* screenRecordingSection();
    [[nodiscard]] PopUpPicker* formatPicker();

    AppState& m_appState;
    Preferences& m_preferences;
    const ScreenGrabber& m_grabber;
};

} // namespace tintwick
