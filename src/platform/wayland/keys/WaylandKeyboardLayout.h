#pragma once

#include "KeyboardLayout.h"
#include "ShortcutSymbols.h"

#include <memory>

namespace tintwick {

/// Reads the keymap that the compositor sends for a keyboard. A keymap holds up to four layouts ("groups"), one of which is
/// current.
class WaylandKeyboardLayout final : public KeyboardLayout
{
    Q_OBJECT

public:
    /// Keeps a reference of the keymap; null while there is no keyboard. Emits changed() when one of the two is another.
    void setKeymap(xkb_keymap* keymap, xkb_layout_index_t currentGroup);

    [[nodiscard]] std::optional<QString> characterForKey(int keyCode) const override;
    [[nodiscard]] std::optional<QString> accentForKey(int keyCode) const override;
    /// The name of the key's symbol ("c", "Return", "XF86AudioMute"), as compositors and portals read it; that of the US
    /// layout where the keymap has none. None for keys without a symbol.
    [[nodiscard]] std::optional<QString> symbolNameForKey(int keyCode) const;

private:
    [[nodiscard]] xkb_keysym_t symbolOf(int keyCode) const;

    ShortcutSymbols m_symbols;
    std::unique_ptr<xkb_keymap, XkbUnref> m_keymap;
    xkb_layout_index_t m_group = 0;
};

} // namespace tintwick
