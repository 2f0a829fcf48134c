#pragma once

#include "RecorderServices.h"
#include "SettingsTab.h"
#include "View.h"

namespace tintwick {

class AppState;
class Platform;
class Preferences;
class SegmentedPicker;

/// The settings screen of the panel: two tabs. Starts with the first.
class SettingsScreen final : public View
{
    Q_OBJECT

public:
    /// `panel` contains the view and is what alerts cover. All arguments must outlive the view.
    SettingsScreen(AppState& appState, Preferences& preferences, const RecorderServices& recording,
                   const Platform& platform, QWidget& panel);

    [[nodiscard]] SettingsTab tab() const { return m_tab; }
    void setTab(SettingsTab tab);

protected:
    void showEvent(QShowEvent* event) override;

private:
    class Screen;

    void showTab();

    AppState& m_appState;
    Preferences& m_preferences;
    RecorderServices m_recording;
    const Platform& m_platform;
    QWidget& m_panel;
    SettingsTab m_tab = SettingsTab::General;
    SegmentedPicker* m_tabPicker;
    Screen* m_screen;
};

} // namespace tintwick
