#pragma once

#include "Platform.h"
#include "ToolkitConnection.h"
#include "X11GlobalShortcuts.h"
#include "X11KeyRecording.h"
#include "X11KeyboardLayout.h"
#include "X11PanelHost.h"
#include "X11PickingInput.h"
#include "X11ScreenGrabber.h"
#include "XcbConnection.h"
#include "XkbKeymap.h"

#include <memory>
#include <optional>

namespace tintwick {

class X11Platform final : public Platform
{
public:
    /// None where there is no X server, or one that shows only the windows of X programs; then `whyNot` tells.
    [[nodiscard]] static std::unique_ptr<Platform> connect(QString& whyNot);

    explicit X11Platform(std::unique_ptr<XcbConnection> connection);

    [[nodiscard]] ScreenGrabber& screenGrabber() override { return x11ScreenGrabber(); }
    [[nodiscard]] PickingInput& pickingInput() override { return m_pickingInput; }
    [[nodiscard]] std::unique_ptr<LoupeSurface> createLoupeSurface() override;
    [[nodiscard]] PanelHost& panelHost() override { return m_panelHost; }
    void prepareClipboard() override { m_toolkitClock.bringUpToDate(); }
    [[nodiscard]] GlobalShortcuts& globalShortcuts() override;
    [[nodiscard]] KeyboardLayout& keyboardLayout() override;
    [[nodiscard]] KeyRecording* keyRecording() override;

private:
    [[nodiscard]] X11ScreenGrabber& x11ScreenGrabber();

    std::unique_ptr<XcbConnection> m_connection;
    XkbKeymap m_keymap;
    X11PickingInput m_pickingInput;
    X11PanelHost m_panelHost;
    toolkit::Clock m_toolkitClock;
    // Made when first asked for, because they need the application object.
    std::optional<X11ScreenGrabber> m_screenGrabber;
    std::optional<X11GlobalShortcuts> m_globalShortcuts;
    std::optional<X11KeyboardLayout> m_keyboardLayout;
    std::optional<X11KeyRecording> m_keyRecording;
};

} // namespace tintwick
