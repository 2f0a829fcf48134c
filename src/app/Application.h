#pragma once

#include "AppState.h"
#include "ColorPickerService.h"
#include "OpenMenuWatcher.h"
#include "Panel.h"
#include "Platform.h"
#include "Preferences.h"
#include "Registry.h"
#include "ScreenCaptureService.h"
#include "TrayIcon.h"

#include <QElapsedTimer>
#include <QObject>
#include <QPoint>
#include <QSettings>

#include <memory>
#include <optional>

class QWidget;

namespace tintwick {

class DesktopSettings;
class PanelView;
class SettingsWindow;

/// The program: owns its state, tray icon, panel, picker and global shortcuts, and connects them. The constructor loads
/// the data file. Needs a QApplication.
class Application final : public QObject
{
    Q_OBJECT

public:
    /// Sets what the toolkit must know before an Application is made: names, paths, and no timers while idle.
    static void setUpToolkit();

    explicit Application(std::unique_ptr<Platform> platform);
    ~Application() override;

    /// Shows the tray icon and grabs the global shortcuts. Call once; the panel and the loupe are prepared later.
    void start();

private:
    void prepareLater();
    void setupTrayIcon();
    void setupPanel();
    void setupPicker();
    void setupShortcuts();
    void setupDismissal();
    void followDesktopAppearance();
    [[nodiscard]] QWidget* createSettings(QWidget& panel);

    /// Whether a click outside our windows may hide the panel now.
    [[nodiscard]] static bool isDismissible();
    void dismissPanel();
    void togglePanel();
    [[nodiscard]] bool isClickThatDismissedPanel();
    /// `click` is where the tray icon was clicked, in points from the top left of the desktop.
    void showPanel(Panel::Typing typing, std::optional<QPoint> click = {});
    void hidePanel();
    void openSettingsWindow();

    void pick();
    /// Hides the panel first, so that the user can pick what it covers.
    void pickFromPanel();

    std::unique_ptr<Platform> m_platform;
    AppState m_appState;
    Preferences m_preferences;
    TrayIcon m_trayIcon;
    ScreenCaptureService m_capture;
    ColorPickerService m_picker;
    /// Owned by the panel.
    PanelView* m_panelView = nullptr;
    std::unique_ptr<Panel> m_panel;
    std::unique_ptr<SettingsWindow> m_settingsWindow;
    std::unique_ptr<DesktopSettings> m_desktopSettings;
    QElapsedTimer m_sinceDismissal;
    QPoint m_dismissingClick;
    QSettings m_settings;
    KeyboardShortcuts::Registry m_shortcuts;
    KeyboardShortcuts::OpenMenuWatcher m_openMenuWatcher;
};

} // namespace tintwick
