#pragma once

#include "NullPlatform.h"
#include "Platform.h"
#include "WaylandConnection.h"
#include "WaylandPanelHost.h"
#include "WaylandPickingParts.h"
#include "WaylandSeat.h"

#include <memory>
#include <optional>

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
    [[nodiscard]] CapturePermission capturePermission() const override { return {}; }
    [[nodiscard]] PanelHost& panelHost() override { return m_panelHost; }
    [[nodiscard]] Tray* tray() override { return nullptr; }
    [[nodiscard]] GlobalShortcuts& globalShortcuts() override { return m_shortcuts; }
    [[nodiscard]] KeyboardLayout& keyboardLayout() override { return m_layout; }
    [[nodiscard]] KeyRecording* keyRecording() override { return nullptr; }
    void keepClipboard() override;

private:
    std::unique_ptr<WaylandConnection> m_connection;
    WaylandSeat m_seat;
    std::optional<WaylandPickingParts> m_picking;
    WaylandPanelHost m_panelHost;
    NullGlobalShortcuts m_shortcuts;
    NullKeyboardLayout m_layout;
};

} // namespace tintwick
