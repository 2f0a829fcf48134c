#pragma once

#include <xcb/xcb.h>

#include <bitset>
#include <cstdint>
#include <optional>

namespace tintwick {

class XcbConnection;

/// What a key event's modifiers are in; above are pointer buttons and the keyboard's group.
inline constexpr std::uint16_t allModifierBits = 0xFF;

/// The bits that a keymap gives to the modifiers and locks that have no bit of their own in the protocol.
struct ModifierBits
{
    std::uint16_t option = 0;
    std::uint16_t command = 0;
    std::uint16_t numLock = 0;
    std::uint16_t scrollLock = 0;

    /// All bits that a key's meaning does not depend on.
    [[nodiscard]] std::uint16_t locks() const;
    /// The modifiers of an event's state, see `modifier` in KeyCode.h; none when one is down that no shortcut can have.
    [[nodiscard]] std::optional<int> carbonModifiers(std::uint32_t state) const;

    friend bool operator==(const ModifierBits&, const ModifierBits&) = default;
};

/// Those of the current keymap; none when the server does not answer.
[[nodiscard]] std::optional<ModifierBits> readModifierBits(const XcbConnection& connection);

/// The keys that are a modifier or a lock in the current keymap, those included that choose a level or a group of it, by
/// X keycode.
[[nodiscard]] std::bitset<256> readModifierKeys(const XcbConnection& connection);

} // namespace tintwick
