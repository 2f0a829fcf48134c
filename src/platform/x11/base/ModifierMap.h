#pragma once

#include <xcb/xcb.h>

#include <bitset>
#include <cstdint>
#include <optional>

namespace tintwick {

class XcbConnection;

/// The modifier bits of an event's state. The bits above them are pointer buttons and the keyboard's group.
inline constexpr std::uint16_t allModifierBits = 0xFF;

/// Converts between the modifier bits of one keymap and the masks of `modifier` in KeyCode.h. The protocol fixes the
/// bits of Shift, Control and Caps Lock; a keymap assigns the bits below, 0 when it has no such modifier.
struct ModifierMap
{
    std::uint16_t alt = 0;
    std::uint16_t super = 0;
    std::uint16_t numLock = 0;
    std::uint16_t scrollLock = 0;

    /// Reads the current keymap of the server; none when the server does not answer.
    [[nodiscard]] static std::optional<ModifierMap> read(const XcbConnection& connection);

    /// The bits of Caps Lock, Num Lock and Scroll Lock. They do not change which shortcut a key press is.
    [[nodiscard]] std::uint16_t locks() const;
    /// The modifiers in an event's state. Locks and modifiers without a mask in KeyCode.h are left out.
    [[nodiscard]] int modifiers(std::uint32_t state) const;
    /// As modifiers(); none when the state has a modifier that no shortcut can have, for example AltGr.
    [[nodiscard]] std::optional<int> shortcutModifiers(std::uint32_t state) const;
    /// The bits of the modifiers in a mask; none when the keymap has no bit for one of them. X11 has no modifier for
    /// the Function key.
    [[nodiscard]] std::optional<std::uint16_t> bits(int modifiers) const;

    friend bool operator==(const ModifierMap&, const ModifierMap&) = default;
};

/// The X keycodes of all modifier and lock keys of the current keymap, including those that select a level or a group.
[[nodiscard]] std::bitset<256> readModifierKeys(const XcbConnection& connection);

} // namespace tintwick
