#pragma once

#include "app/FloatingPanel.h"
#include "app/StatusItem.h"
#include "picker/ColorPickerService.h"
#include "picker/ScreenCaptureService.h"
#include "platform/Platform.h"
#include "shortcuts/OpenMenuWatcher.h"
#include "shortcuts/Registry.h"
#include "state/AppState.h"

#include <QElapsedTimer>
#include <QPoint>
#include <QSettings>

#include <memory>
#include <optional>

class QWidget;

namespace tintwick {

class MainPanelView;
class SettingsView;
class SystemAppearance;

/// Builds everything at launch and holds it for the life of the process: the application's state, the status item, the
/// main panel, the picker and the global shortcuts. Making it loads the data file.
class AppDelegate final
{
public:
    explicit AppDelegate(std::unique_ptr<Platform> platform);
    ~AppDelegate();
    AppDelegate(const AppDelegate&) = delete;
    AppDelegate& operator=(const AppDelegate&) = delete;

    void applicationDidFinishLaunching();

private:
    void prepareLater();
    void setupMenuBar();
    void setupMainPanel();
    [[nodiscard]] QWidget* makeSettings(QWidget& panel);
    void setupColorPickerService();
    void setupGlobalClickDismiss();

    /// Whether what is pressed elsewhere right now is no business of ours.
    [[nodiscard]] static bool isMeantElsewhere();
    void handleClickElsewhere();
    void handleStatusBarClick();
    [[nodiscard]] bool isTheClickThatHidThePanel();
    /// `click` is where the status item was clicked, if it was.
    void showMainPanel(FloatingPanel::Typing typing, std::optional<QPoint> click = {});
    void hideMainPanel();
    /// The separate window; the settings themselves are in the panel.
    void openSettings();
    void followSystemAppearance();

    void setupGlobalShortcut();
    /// The menu's way in; a colour picked is recorded, copied and saved.
    void activatePicker();
    /// The panel's way in: the panel is gone from the screen before picking begins.
    void activateColorPicker();

    std::unique_ptr<Platform> m_platform;
    AppState m_appState;
    StatusItem m_statusItem;
    ScreenCaptureService m_capture;
    ColorPickerService m_colorPickerService;
    // Belongs to the panel.
    MainPanelView* m_mainPanelView = nullptr;
    std::unique_ptr<FloatingPanel> m_mainPanel;
    std::unique_ptr<SettingsView> m_settingsView;
    std::unique_ptr<SystemAppearance> m_systemAppearance;
    QElapsedTimer m_sinceClickElsewhere;
    QPoint m_clickElsewhere;
    QSettings m_settings;
    KeyboardShortcuts::Registry m_shortcuts;
    KeyboardShortcuts::OpenMenuWatcher m_openMenuWatcher;
};

} // namespace tintwick
