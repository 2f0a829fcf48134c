#pragma once

#include "GlobalShortcuts.h"
#include "KeyboardLayout.h"
#include "PanelHost.h"
#include "Platform.h"

#include <memory>

namespace tintwick {

class NullGlobalShortcuts final : public GlobalShortcuts
{
    Q_OBJECT

public:
    void bind(const QString& id, const QString& description,
              const std::optional<Shortcut>& preferred) override;
    void unbind(const QString&) override {}
    [[nodiscard]] KeyChoice keyChoice() const override { return KeyChoice::None; }
    [[nodiscard]] bool isTaken(const Shortcut&) const override { return false; }
};

class NullKeyboardLayout final : public KeyboardLayout
{
    Q_OBJECT

public:
    [[nodiscard]] std::optional<QString> characterForKey(int) const override { return std::nullopt; }
    [[nodiscard]] std::optional<QString> accentForKey(int) const override { return std::nullopt; }
};

/// Shows the panel as an ordinary window that the toolkit places.
class NullPanelHost final : public PanelHost
{
    Q_OBJECT

public:
    void show(PanelWindow& panel, const PanelAnchor& anchor) override;
    void showAgain(PanelWindow& panel) override;
    void setDismissible(bool) override {}
    void setKeptOpen(bool) override {}
};

/// A desktop without any service: picks and shortcuts are refused, keys cannot be recorded. Used where the toolkit
/// draws into memory only.
class NullPlatform final : public Platform
{
public:
    /// Returns null where the toolkit shows windows on a desktop.
    [[nodiscard]] static std::unique_ptr<Platform> connect(QString& whyNot);

    void preparePicking() override {}
    [[nodiscard]] std::unique_ptr<PickingSession> startPick(PickingSession::Listener& listener) override;
    [[nodiscard]] CapturePermission capturePermission() const override
    {
        return {.isGranted = false, .openSettings = {}};
    }
    [[nodiscard]] PointerBadge* pointerBadge() override { return nullptr; }
    [[nodiscard]] PanelHost& panelHost() override { return m_panelHost; }
    [[nodiscard]] Tray* tray() override { return nullptr; }
    [[nodiscard]] GlobalShortcuts& globalShortcuts() override { return m_shortcuts; }
    [[nodiscard]] KeyboardLayout& keyboardLayout() override { return m_layout; }
    [[nodiscard]] KeyRecording* keyRecording() override { return nullptr; }
    void keepClipboard() override {}

private:
    NullPanelHost m_panelHost;
    NullGlobalShortcuts m_shortcuts;
    NullKeyboardLayout m_layout;
};

} // namespace tintwick
