#pragma once

#include "Platform.h"
#include "X11GlobalShortcuts.h"
#include "X11KeyRecording.h"
#include "X11KeyboardLayout.h"
#include "X11PanelHost.h"
#include "X11PickingSession.h"
#include "X11PointerBadge.h"
#include "X11Tray.h"
#include "XcbConnection.h"
#include "XkbKeymap.h"

#include <memory>
#include <optional>

namespace tintwick {

class X11Platform final : public Platform
{
public:
    /// Returns none without an X server or inside a Wayland session, and sets `whyNot` to one sentence for the user.
    [[nodiscard]] static std::unique_ptr<Platform> connect(QString& whyNot);

    explicit X11Platform(std::unique_ptr<XcbConnection> connection);

    void preparePicking() override;
    [[nodiscard]] std::unique_ptr<PickingSession> startPick(PickingSession::Listener& listener) override;
    /// An X server lets every client read the screen.
    [[nodiscard]] CapturePermission capturePermission() const override { return {}; }
    [[nodiscard]] PointerBadge* pointerBadge() override;
    [[nodiscard]] PanelHost& panelHost() override { return m_panelHost; }
    [[nodiscard]] Tray* tray() override;
    [[nodiscard]] GlobalShortcuts& globalShortcuts() override;
    [[nodiscard]] KeyboardLayout& keyboardLayout() override;
    [[nodiscard]] KeyRecording* keyRecording() override;
    void keepClipboard() override;

private:
    std::unique_ptr<XcbConnection> m_connection;
    XkbKeymap m_keymap;
    X11PanelHost m_panelHost;
    // Made when first asked for, because they need the application object.
    std::optional<X11PickingParts> m_picking;
    std::optional<X11PointerBadge> m_badge;
    std::optional<X11Tray> m_tray;
    std::optional<X11GlobalShortcuts> m_globalShortcuts;
    std::optional<X11KeyboardLayout> m_keyboardLayout;
    std::optional<X11KeyRecording> m_keyRecording;
};

} // namespace tintwick
