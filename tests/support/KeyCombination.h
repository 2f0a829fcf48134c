#pragma once

#include "support/DesktopConnection.h"

#include <cstdint>

namespace tintwick {

/// A global key combination: a key by its position (KEY_C, ...), and the X11 modifier bits.
struct KeyCombination
{
    int key;
    std::uint16_t modifiers;

    /// Grabs the combination for the connection; false when another client holds it.
    [[nodiscard]] bool take(DesktopConnection& connection) const;
    /// Whether another client has grabbed it with any lock modifiers. The query leaves no grab.
    [[nodiscard]] bool isHeld(DesktopConnection& connection) const;
    /// Whether no other client has grabbed it with any lock modifiers.
    [[nodiscard]] bool isFree(DesktopConnection& connection) const;
};

} // namespace tintwick
