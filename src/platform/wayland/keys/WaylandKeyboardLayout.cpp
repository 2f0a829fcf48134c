#include "WaylandKeyboardLayout.h"

#include <array>

namespace tintwick {

void WaylandKeyboardLayout::setKeymap(xkb_keymap* keymap, xkb_layout_index_t currentGroup)
{
    if (keymap == m_keymap.get() && currentGroup == m_group) {
        return;
    }
    m_keymap.reset(keymap ? xkb_keymap_ref(keymap) : nullptr);
    m_group = currentGroup;
    Q_EMIT changed();
}

std::optional<QString> WaylandKeyboardLayout::characterForKey(int keyCode) const
{
    return characterOfSymbol(symbolOf(keyCode));
}

std::optional<QString> WaylandKeyboardLayout::accentForKey(int keyCode) const
{
    return accentOfSymbol(symbolOf(keyCode));
}

std::optional<QString> WaylandKeyboardLayout::symbolNameForKey(int keyCode) const
{
    const xkb_keysym_t own = symbolOf(keyCode);
    const xkb_keysym_t symbol = own != XKB_KEY_NoSymbol ? own : m_symbols.usSymbolOf(keyCode);
    std::array<char, 64> name{};
    const bool isNamed =
        symbol != XKB_KEY_NoSymbol && xkb_keysym_get_name(symbol, name.data(), name.size()) > 0;
    return isNamed ? std::optional(QString::fromLatin1(name.data())) : std::nullopt;
}

xkb_keysym_t WaylandKeyboardLayout::symbolOf(int keyCode) const
{
    return m_symbols.symbolOf(keyCode, m_keymap.get(), m_group);
}

} // namespace tintwick
