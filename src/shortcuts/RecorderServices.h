#pragma once

class QMenu;

namespace tintwick {

class KeyboardLayout;
class KeyRecording;
class PanelHost;
class ShortcutRegistry;

/// What every shortcut recorder works with. All of it must outlive the recorders.
struct RecorderServices
{
    ShortcutRegistry& shortcuts;
    /// Null when the desktop does not let a program take the keyboard.
    KeyRecording* keys = nullptr;
    const KeyboardLayout& layout;
    /// The program's menu; its shortcuts cannot be recorded.
    const QMenu& menu;
    /// Names the window for the desktop's dialog; null for none.
    const PanelHost* panelHost = nullptr;
};

} // namespace tintwick
