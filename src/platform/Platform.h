#pragma once

#include <QString>

#include <memory>

namespace tintwick {

class GlobalShortcuts;
class KeyboardLayout;
class KeyRecording;
class LoupeSurface;
class PanelHost;
class PickingInput;
class ScreenGrabber;

/// Everything the program needs of a desktop. One backend is chosen at start and lives as long as the program; what it
/// offers is used once the application object exists.
class Platform
{
public:
    virtual ~Platform() = default;

    [[nodiscard]] virtual ScreenGrabber& screenGrabber() = 0;
    [[nodiscard]] virtual PickingInput& pickingInput() = 0;
    /// Never none.
    [[nodiscard]] virtual std::unique_ptr<LoupeSurface> createLoupeSurface() = 0;
    [[nodiscard]] virtual PanelHost& panelHost() = 0;
    /// To be called before something is put on the clipboard that no event of our own windows asked for; a desktop may
    /// refuse it otherwise. Runs a nested event loop without input.
    virtual void prepareClipboard() = 0;
    [[nodiscard]] virtual GlobalShortcuts& globalShortcuts() = 0;
    [[nodiscard]] virtual KeyboardLayout& keyboardLayout() = 0;
    /// Null when the desktop does not let a program take the keyboard.
    [[nodiscard]] virtual KeyRecording* keyRecording() = 0;
};

} // namespace tintwick
