#pragma once

#include "AppState.h"
#include "ColorPickerService.h"
#include "OpenMenuWatcher.h"
#include "Panel.h"
#include "Platform.h"
#include "Registry.h"
#include "ScreenCaptureService.h"
#include "TrayIcon.h"

#include <QElapsedTimer>
#include <QPoint>
#include <QSettings>

#include <memory>
#include <optional>

class QWidget;

namespace tintwick {

class PanelView;
class SettingsWindow;
class DesktopSettings;

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
    void showMainPanel(Panel::Typing typing, std::optional<QPoint> click = {});
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
    TrayIcon m_statusItem;
    ScreenCaptureService m_capture;
    ColorPickerService m_colorPickerService;
    // Belongs to the panel.
    PanelView* m_panelView = nullptr;
    std::unique_ptr<Panel> m_mainPanel;
    std::unique_ptr<SettingsWindow> m_settingsView;
    std::unique_ptr<DesktopSettings> m_systemAppearance;
    QElapsedTimer m_sinceClickElsewhere;
    QPoint m_clickElsewhere;
    QSettings m_settings;
    KeyboardShortcuts::Registry m_shortcuts;
    KeyboardShortcuts::OpenMenuWatcher m_openMenuWatcher;
};

} // namespace tintwick
