#pragma once

#include "HotKeyRegistrar.h"
#include "Shortcut.h"

#include <cstdint>
#include <functional>
#include <map>
#include <optional>

namespace tintwick {
class KeyboardLayout;
}

namespace tintwick::KeyboardShortcuts {

/// Turns shortcuts into hot keys of the whole desktop. While a menu of ours is open the desktop delivers no hot keys;
/// they are given back for that time, and the menu's own key events are watched instead.
class CarbonKeyboardShortcuts final
{
public:
    using Action = std::function<void(const Shortcut&)>;

    /// Both must outlive this object.
    CarbonKeyboardShortcuts(HotKeyRegistrar& registrar, const KeyboardLayout& layout);
    ~CarbonKeyboardShortcuts();
    CarbonKeyboardShortcuts(const CarbonKeyboardShortcuts&) = delete;
    CarbonKeyboardShortcuts& operator=(const CarbonKeyboardShortcuts&) = delete;

    /// When the desktop refuses, one line on standard output says so, and nothing is registered. Every attempt uses up
    /// an id; registering the same shortcut again adds a second registration.
    void registerShortcut(const Shortcut& shortcut, Action onKeyDown, Action onKeyUp);
    /// Drops every registration of the shortcut.
    void unregisterShortcut(const Shortcut& shortcut);

    /// Disabled, all hot keys are given back; enabling takes them again under their ids.
    void setEnabled(bool enabled);
    [[nodiscard]] bool isEnabled() const { return m_isEnabled; }
    void setMenuOpen(bool open);

private:
    using Handle = HotKeyRegistrar::Handle;

    struct HotKey
    {
        Shortcut shortcut;
        std::uint32_t carbonHotKeyId = 0;
        /// None while the hot key is temporarily given back.
        std::optional<Handle> carbonHotKey;
        Action onKeyDown;
        Action onKeyUp;
    };

    void updateEventHandler();
    void softRegisterAll();
    void softUnregisterAll();
    /// None, after the line on standard output, when the desktop refuses.
    [[nodiscard]] std::optional<Handle> take(const Shortcut& shortcut, std::uint32_t id) const;

    void handleHotKey(std::uint32_t id, KeyDirection direction);
    /// Whether the key belongs to a shortcut; then it is not for the menu.
    [[nodiscard]] bool handleRawKey(int keyCode, int modifiers, KeyDirection direction);

    HotKeyRegistrar& m_registrar;
    const KeyboardLayout& m_layout;
    std::map<std::uint32_t, HotKey> m_hotKeys;
    std::uint32_t m_lastId = 0;
    /// From the first successful registration on.
    bool m_isListening = false;
    bool m_isEnabled = true;
    bool m_isMenuOpen = false;
};

} // namespace tintwick::KeyboardShortcuts
