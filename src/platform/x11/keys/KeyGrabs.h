#pragma once

#include "ModifierMap.h"
#include "Shortcut.h"

#include <xcb/xcb.h>

#include <cstdint>
#include <optional>
#include <vector>

namespace tintwick {

class XcbConnection;

/// A key combination as the server identifies it.
struct KeyGrab
{
    xcb_keycode_t keycode = 0;
    /// Modifier bits without those of locks.
    std::uint16_t modifiers = 0;

    friend bool operator==(const KeyGrab&, const KeyGrab&) = default;
};

/// Passive grabs of keys on the root window: the server sends a grabbed key press to this connection only, whichever
/// window has the focus.
class KeyGrabs final
{
public:
    /// The connection must outlive this object.
    explicit KeyGrabs(const XcbConnection& connection);

    [[nodiscard]] const ModifierMap& modifierMap() const { return m_modifierMap; }
    /// Grabs depend on the map: give them back before a new one is set, and take them again afterwards.
    void setModifierMap(const ModifierMap& map) { m_modifierMap = map; }

    /// None when the keymap does not have the key or has no bit for one of the modifiers.
    [[nodiscard]] std::optional<KeyGrab> grabFor(const Shortcut& shortcut) const;
    /// The combination of a key event, by its keycode and state.
    [[nodiscard]] KeyGrab pressed(xcb_keycode_t keycode, std::uint16_t state) const;

    /// Grabs the combination under every combination of locks. False when another client holds one of them; then
    /// nothing is grabbed.
    [[nodiscard]] bool take(const KeyGrab& grab) const;
    void giveBack(const KeyGrab& grab) const;
    /// Whether take() would succeed now. Other clients never see the grab that tests it.
    [[nodiscard]] bool isFree(const KeyGrab& grab) const;

private:
    /// Every combination of the locks' bits, none included.
    [[nodiscard]] std::vector<std::uint16_t> lockCombinations() const;
    [[nodiscard]] bool isHeldThroughInputExtension(const KeyGrab& grab) const;

    const XcbConnection& m_connection;
    bool m_hasInputExtension = false;
    ModifierMap m_modifierMap;
};

} // namespace tintwick
