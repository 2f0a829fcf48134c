#pragma once

#include "XkbUnref.h"

#include <QString>

#include <memory>
#include <optional>

namespace tintwick {

/// The symbols that keys have without modifiers, in the layout that shortcuts use: the current layout if it has Latin
/// letters, otherwise the first layout that has, otherwise the US layout. Keyboards of other scripts print the US letters
/// beside their own. Key codes are those of KeyCode.h.
class ShortcutSymbols final
{
public:
    /// `current` is the current layout of the keymap. XKB_KEY_NoSymbol when the key has none or several, or when there is
    /// no keymap.
    [[nodiscard]] xkb_keysym_t symbolOf(int keyCode, xkb_keymap* keymap, xkb_layout_index_t current) const;
    /// The same in the US layout; XKB_KEY_NoSymbol also when the description of this layout is not installed.
    [[nodiscard]] xkb_keysym_t usSymbolOf(int keyCode) const;

private:
    /// Null when the description of the US layout is not installed.
    [[nodiscard]] xkb_keymap* usKeymap() const;

    /// Read when first needed.
    mutable std::unique_ptr<xkb_keymap, XkbUnref> m_usKeymap;
};

/// See KeyboardLayout::characterForKey().
[[nodiscard]] std::optional<QString> characterOfSymbol(xkb_keysym_t symbol);
/// See KeyboardLayout::accentForKey().
[[nodiscard]] std::optional<QString> accentOfSymbol(xkb_keysym_t symbol);

} // namespace tintwick
