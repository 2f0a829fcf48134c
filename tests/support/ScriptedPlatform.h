#pragma once

#include "Platform.h"
#include "support/ScriptedGlobalShortcuts.h"
#include "support/ScriptedKeyRecording.h"
#include "support/ScriptedKeyboardLayout.h"
#include "support/ScriptedPanelHost.h"
#include "support/ScriptedPickingSession.h"

namespace tintwick::test {

/// A desktop that exists only in the test, which scripts all its parts.
class ScriptedPlatform final : public Platform
{
public:
    ScriptedDesktop desktop;
    CapturePermission permission;
    ScriptedPanelHost panels;
    ScriptedGlobalShortcuts shortcuts;
    ScriptedKeyboardLayout layout;
    ScriptedKeyRecording recording;

    void preparePicking() override {}
    [[nodiscard]] std::unique_ptr<PickingSession> startPick(PickingSession::Listener& listener) override
    {
        return std::make_unique<ScriptedPickingSession>(desktop, listener);
    }
    [[nodiscard]] CapturePermission capturePermission() const override { return permission; }
    [[nodiscard]] PointerBadge* pointerBadge() override { return nullptr; }
    [[nodiscard]] PanelHost& panelHost() override { return panels; }
    [[nodiscard]] Tray* tray() override { return nullptr; }
    [[nodiscard]] GlobalShortcuts& globalShortcuts() override { return shortcuts; }
    [[nodiscard]] KeyboardLayout& keyboardLayout() override { return layout; }
    [[nodiscard]] KeyRecording* keyRecording() override { return &recording; }
    void keepClipboard() override {}
};

} // namespace tintwick::test
