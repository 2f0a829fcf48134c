#pragma once

#include "app/StatusItem.h"
#include "picker/ColorPickerService.h"
#include "picker/ScreenCaptureService.h"
#include "platform/Platform.h"
#include "state/AppState.h"

#include <memory>

namespace tintwick {

/// Builds everything at launch and holds it for the life of the process: the application's state, the status item and
/// the picker. Making it loads the data file.
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
    /// The menu's way in; a colour picked is recorded, copied and saved.
    void activatePicker();

    std::unique_ptr<Platform> m_platform;
    AppState m_appState;
    StatusItem m_statusItem;
    ScreenCaptureService m_capture;
    ColorPickerService m_colorPickerService;
};

} // namespace tintwick
