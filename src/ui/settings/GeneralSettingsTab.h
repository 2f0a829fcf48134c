#pragma once

#include "View.h"

namespace tintwick {

class AppState;
class PopUpPicker;
class Platform;
class Preferences;
struct RecorderServices;

/// The tab for shortcuts, loupe, copy format and screen permission. Changes are stored at once and apply to the next
/// pick.
class GeneralSettingsTab final : public View
{
    Q_OBJECT

public:
    /// Alerts open over `panel`. All arguments must outlive the view.
    GeneralSettingsTab(AppState& appState, Preferences& preferences, const RecorderServices& recording,
                       const Platform& platform, QWidget& panel);

private:
    [[nodiscard]] QWidget* loupeSection();
    [[nodiscard]] QWidget* copyFormatSection();
    [[nodiscard]] QWidget* screenRecordingSection();
    [[nodiscard]] static QWidget* startSection();
    [[nodiscard]] PopUpPicker* formatPicker();

    AppState& m_appState;
    Preferences& m_preferences;
    const Platform& m_platform;
};

} // namespace tintwick
