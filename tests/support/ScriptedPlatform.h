#pragma once

#include "Platform.h"
#include "support/ScriptedGlobalShortcuts.h"
#include "support/ScriptedKeyRecording.h"
#include "support/ScriptedKeyboardLayout.h"
#include "support/ScriptedLoupeSurface.h"
#include "support/ScriptedPanelHost.h"
#include "support/ScriptedPickingInput.h"
#include "support/ScriptedScreenGrabber.h"

namespace tintwick::test {

/// A desktop that exists only in the test: it feeds images, moves and keys, and records what was asked of it in order.
class ScriptedPlatform final : public Platform
{
public:
    /// What was asked of all parts, in order, one line each.
    QStringList journal;
    ScriptedScreenGrabber grabber{journal};
    ScriptedPickingInput input{journal};
    ScriptedPanelHost panels;
    ScriptedGlobalShortcuts shortcuts;
    ScriptedKeyboardLayout layout;
    ScriptedKeyRecording recording;
    /// Every frame of every loupe.
    std::vector<ScriptedLoupeSurface::Frame> frames;

    [[nodiscard]] ScreenGrabber& screenGrabber() override { return grabber; }
    [[nodiscard]] PickingInput& pickingInput() override { return input; }
    /// The first loupe has the id 1, the next one 2, ...
    [[nodiscard]] std::unique_ptr<LoupeSurface> createLoupeSurface() override;
    [[nodiscard]] PanelHost& panelHost() override { return panels; }
    void prepareClipboard() override { journal << QStringLiteral("prepare clipboard"); }
    [[nodiscard]] GlobalShortcuts& globalShortcuts() override { return shortcuts; }
    [[nodiscard]] KeyboardLayout& keyboardLayout() override { return layout; }
    [[nodiscard]] KeyRecording* keyRecording() override { return &recording; }

private:
    SurfaceId m_loupes = 0;
};

} // namespace tintwick::test
