#pragma once

#include "app/StatusItem.h"
#include "picker/ColorPickerService.h"
#include "picker/ScreenCaptureService.h"
#include "platform/Platform.h"
#include "shortcuts/OpenMenuWatcher.h"
#include "shortcuts/Registry.h"
#include "state/AppState.h"

#include <QSettings>

#include <memory>

namespace tintwick {

/// Builds everything at launch and holds it for the life of the process: the application's state, the status item, the
/// picker and the global shortcuts. Making it loads the data file.
class AppDelegate final
{
public:
    explicit AppDelegate(std::unique_ptr<Platform> platform);
    AppDelegate(const AppDelegate&) = delete;
    AppDelegate& operator=(const AppDelegate&) = delete;

    void applicationDidFinishLaunching();

private:
    void setupMenuBar();
    void setupColorPickerService();
    void setupGlobalShortcut();
    /// The menu's way in; a colour picked is recorded, copied and saved.
    void activatePicker();

    std::unique_ptr<Platform> m_platform;
    AppState m_appState;
    StatusItem m_statusItem;
    ScreenCaptureService m_capture;
    ColorPickerService m_colorPickerService;
    QSettings m_settings;
    KeyboardShortcuts::Registry m_shortcuts;
    KeyboardShortcuts::OpenMenuWatcher m_openMenuWatcher;
};

} // namespace tintwick
