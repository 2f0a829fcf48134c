#pragma once

#include "KeyCode.h"

namespace tintwick {

/// One key combination: a key by its position and the modifiers held with it.
struct Shortcut
{
    /// See KeyCode.h.
    int keyCode = 0;
    /// A combination of the masks of `modifier` in KeyCode.h.
    int modifiers = 0;

    friend constexpr bool operator==(const Shortcut&, const Shortcut&) = default;
};

} // namespace tintwick
