#pragma once

#include "support/DesktopConnection.h"

#include <cstdint>

namespace tintwick {

/// A shortcut of the whole desktop as the server knows it: a key by its position (KEY_C, ...), and the modifier bits.
struct KeyCombination
{
    int key;
    std::uint16_t modifiers;

    /// The connection's program takes the combination; false when another holds it.
    [[nodiscard]] bool take(DesktopConnection& connection) const;
    /// Whether another program holds it, whatever is locked; to ask disturbs nobody who is about to take it.
    [[nodiscard]] bool isHeld(DesktopConnection& connection) const;
    /// Whether no other program holds it, whatever is locked.
    [[nodiscard]] bool isFree(DesktopConnection& connection) const;
};

} // namespace tintwick
