#pragma once

namespace tintwick {

/// One key press, or one repetition of a key that is held.
struct KeyPress
{
    /// The position of the key, see KeyCode.h; -1 when KeyCode.h does not list it.
    int keyCode = -1;
    /// A combination of the masks of `modifier` in KeyCode.h.
    int modifiers = 0;
    bool isRepeat = false;
    /// The character that the key types in the current layout with Shift, Caps Lock and the like applied; Control does
    /// not change it. Escape is U+001B, Backspace U+0008, Tab U+0009, Return U+000D, Delete U+007F. 0 when the key
    /// types no character.
    char32_t character = 0;
    /// A modifier that no shortcut can have, such as AltGr, is held.
    bool hasOtherModifier = false;

    friend constexpr bool operator==(const KeyPress&, const KeyPress&) = default;
};

} // namespace tintwick
