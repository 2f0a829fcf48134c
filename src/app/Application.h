#pragma once

#include "AppState.h"
#include "ContextMenu.h"
#include "InstanceService.h"
#include "Notifier.h"
#include "PanelHost.h"
#include "PickBadge.h"
#include "Picking.h"
#include "Platform.h"
#include "Preferences.h"
#include "QuitSignals.h"
#include "ShortcutRegistry.h"
#include "TrayIcon.h"

#include <QObject>
#include <QStringList>

#include <memory>

class QWidget;

namespace tintwick {

class DesktopSettings;
class Panel;
class PanelView;
class PickSeries;
class SettingsWindow;

/// The program: owns its state, tray icon, panel, picker and global shortcuts, and connects them. The constructor loads
/// the data file. Needs a QApplication.
class Application final : public QObject
{
    Q_OBJECT

public:
    /// Sets what the toolkit must know before an Application is made: names, paths, and no timers while idle.
    static void setUpToolkit();

    /// `instance` carries out what other processes ask for and must outlive this object.
    Application(std::unique_ptr<Platform> platform, InstanceService& instance);
    ~Application() override;

    /// When the panel opens although nobody has asked for it.
    enum class SelfOpening {
        Never,
        /// Where there is no tray some seconds after the start, because nothing else could be seen.
        WithoutTray,
        /// Soon after the start, with a notice that names the shortcut.
        AsGreeting
    };

    /// Shows the tray icon and grabs the global shortcuts. Call once; the panel and the loupe are prepared later.
    void start(SelfOpening selfOpening);
    void openPanel();
    void openSettingsWindow();
    /// Opens the panel and imports files.
    void openFiles(const QStringList& paths);

private:
    enum class PickOrigin { Panel, Elsewhere };

    void prepareLater();
    void openWithoutTrayLater();
    void greet();
    void showGreeting();
    void openByItself();
    /// Hides a panel that nobody asked for: it must not cover what the user wants to pick.
    void hideSelfOpened();
    void setupTrayIcon();
    void setupPanel();
    void setupShortcuts();
    void setupInstance(const InstanceService& instance);
    void shortcutReleased(ShortcutAction action);
    void showPickKeys();
    void followDesktopAppearance();
    [[nodiscard]] QWidget* createSettings(QWidget& panel);

    void togglePanel();
    /// What the menu of the tray icon offers; empty where there is a tray.
    [[nodiscard]] QList<MenuEntry> menuWithoutTray();
    void showPanel(const PanelAnchor& anchor);
    void hidePanel();

    void pick(const WantedPick& wanted = {});
    /// Hides the panel first, so that the user can pick what it covers.
    void pickFromPanel(const WantedPick& wanted);
    void startPick(PickOrigin origin, const WantedPick& wanted);
    void sayCopied();
    void finishPick(const PickOutcome& outcome, bool isCopied);
    /// A series of picks for another process.
    void pickFor(const PickRequest& request, const InstanceService::Answer& answer);
    [[nodiscard]] bool isPicking() const { return m_picking.isPicking() || m_series; }
    /// Shows what failed about a pick: the reason in the panel if its button was used, else both in a notification.
    void reportProblem(const QString& summary, const QString& reason);

    QuitSignals m_quitSignals;
    std::unique_ptr<Platform> m_platform;
    AppState m_appState;
    Preferences m_preferences;
    TrayIcon m_trayIcon;
    Notifier m_notifier;
    SelfOpening m_selfOpening = SelfOpening::Never;
    /// Until the user opens the panel or picks.
    bool m_isSelfOpened = false;
    PickOrigin m_pickOrigin = PickOrigin::Elsewhere;
    PickBadge m_badge;
    Picking m_picking;
    /// Null when no other process waits for a pick.
    std::unique_ptr<PickSeries> m_series;
    /// Owned by the panel.
    PanelView* m_panelView = nullptr;
    std::unique_ptr<Panel> m_panel;
    std::unique_ptr<SettingsWindow> m_settingsWindow;
    std::unique_ptr<DesktopSettings> m_desktopSettings;
    ShortcutRegistry m_shortcuts;
};

} // namespace tintwick
