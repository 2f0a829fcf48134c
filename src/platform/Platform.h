#pragma once

#include "CapturePermission.h"
#include "PickingSession.h"

#include <memory>

namespace tintwick {

class GlobalShortcuts;
class KeyboardLayout;
class KeyRecording;
class PanelHost;
class PointerBadge;
class Tray;

/// Everything the program needs from a desktop. One backend is created at start and lives as long as the program. Its
/// services may be used once the application object exists.
class Platform
{
public:
    virtual ~Platform() = default;

    /// Call as soon as the application object exists and before the first pick. Further calls do nothing.
    virtual void preparePicking() = 0;
    /// Starts a pick; the first report, or `refused()`, follows from the event loop. Never returns null. Only one
    /// session may run at a time. The listener must outlive the session.
    [[nodiscard]] virtual std::unique_ptr<PickingSession> startPick(PickingSession::Listener& listener) = 0;
    [[nodiscard]] virtual CapturePermission capturePermission() const = 0;

    /// Null where a program cannot show anything beside the pointer. Call preparePicking() before.
    [[nodiscard]] virtual PointerBadge* pointerBadge() = 0;

    [[nodiscard]] virtual PanelHost& panelHost() = 0;
    /// Null where trays report nothing.
    [[nodiscard]] virtual Tray* tray() = 0;
    [[nodiscard]] virtual GlobalShortcuts& globalShortcuts() = 0;
    [[nodiscard]] virtual KeyboardLayout& keyboardLayout() = 0;
    /// Null where a program cannot grab the keyboard.
    [[nodiscard]] virtual KeyRecording* keyRecording() = 0;

    /// Keeps a text that this program has copied on the clipboard after the program's end. Call when the program ends,
    /// while the application object exists; takes a second at most.
    virtual void keepClipboard() = 0;
};

} // namespace tintwick
