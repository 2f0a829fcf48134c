#pragma once

namespace tintwick {

/// A key that goes down, or repeats itself while it is held.
struct KeyPress
{
    /// The key's position, see KeyCode.h; -1 for a key that has no number there.
    int keyCode = -1;
    /// See `modifier` in KeyCode.h.
    int modifiers = 0;
    bool isRepeat = false;

    friend constexpr bool operator==(const KeyPress&, const KeyPress&) = default;
};

} // namespace tintwick
