#pragma once

#include "Platform.h"
#include "ScreenshotPermission.h"
#include "WaylandConnection.h"
#include "WaylandGlobalShortcuts.h"
#include "WaylandKeyboardLayout.h"
#include "WaylandPanelHost.h"
#include "WaylandPickingParts.h"
#include "WaylandPointerBadge.h"
#include "WaylandSeat.h"

#include <memory>
#include <optional>
#include <vector>

namespace tintwick {

/// The program on a Wayland compositor.
class WaylandPlatform final : public Platform
{
public:
    /// Returns null and one sentence for the user when there is no compositor, or the user chose another platform of the
    /// toolkit. On success the toolkit is told to use the compositor too.
    [[nodiscard]] static std::unique_ptr<Platform> connect(QString& whyNot);

    explicit WaylandPlatform(std::unique_ptr<WaylandConnection> connection);

    void preparePicking() override;
    [[nodiscard]] std::unique_ptr<PickingSession> startPick(PickingSession::Listener& listener) override;
    [[nodiscard]] CapturePermission capturePermission() const override;
    [[nodiscard]] PointerBadge* pointerBadge() override;
    [[nodiscard]] PanelHost& panelHost() override { return m_panelHost; }
    [[nodiscard]] Tray* tray() override { return nullptr; }
    [[nodiscard]] GlobalShortcuts& globalShortcuts() override;
    [[nodiscard]] KeyboardLayout& keyboardLayout() override { return m_layout; }
    [[nodiscard]] KeyRecording* keyRecording() override { return nullptr; }
    void keepClipboard() override;

private:
    void readKeymap();
    [[nodiscard]] std::vector<std::unique_ptr<ScreenCapture>> waysToCapture();

    std::unique_ptr<WaylandConnection> m_connection;
    WaylandSeat m_seat;
    /// The permission of the portal; none where the compositor itself offers pictures.
    std::optional<ScreenshotPermission> m_screenshots;
    std::optional<WaylandPickingParts> m_picking;
    std::optional<WaylandPointerBadge> m_badge;
    WaylandPanelHost m_panelHost;
    WaylandKeyboardLayout m_layout;
    // Made when first asked for, because they need the application object.
    std::optional<WaylandGlobalShortcuts> m_shortcuts;
};

} // namespace tintwick
