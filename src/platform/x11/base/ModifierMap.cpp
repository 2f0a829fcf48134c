#include "ModifierMap.h"

#include "KeyCode.h"
#include "XcbConnection.h"

#include <xkbcommon/xkbcommon-keysyms.h>

#include <algorithm>
#include <array>
#include <span>

namespace tintwick {

namespace {

/// The keymap of the server in the representation of the core protocol.
struct Keymap
{
    explicit Keymap(const XcbConnection& connection)
        : firstKey(xcb_get_setup(connection.get())->min_keycode)
    {
        auto* const c = connection.get();
        const auto count = static_cast<std::uint8_t>(xcb_get_setup(c)->max_keycode - firstKey + 1);
        const auto modifierCookie = xcb_get_modifier_mapping(c);
        const auto keyboardCookie = xcb_get_keyboard_mapping(c, firstKey, count);
        modifierMap.reset(xcb_get_modifier_mapping_reply(c, modifierCookie, nullptr));
        keyboardMap.reset(xcb_get_keyboard_mapping_reply(c, keyboardCookie, nullptr));
    }

    [[nodiscard]] bool isComplete() const { return modifierMap && keyboardMap; }

    /// keysPerModifier() keycodes for each of the eight modifiers; 0 where no key is assigned.
    [[nodiscard]] std::span<const xcb_keycode_t> modifierKeys() const
    {
        return {xcb_get_modifier_mapping_keycodes(modifierMap.get()),
                static_cast<std::size_t>(xcb_get_modifier_mapping_keycodes_length(modifierMap.get()))};
    }
    [[nodiscard]] std::size_t keysPerModifier() const { return modifierMap->keycodes_per_modifier; }

    [[nodiscard]] std::size_t keyCount() const
    {
        return static_cast<std::size_t>(xcb_get_keyboard_mapping_keysyms_length(keyboardMap.get())) /
               keyboardMap->keysyms_per_keycode;
    }
    [[nodiscard]] std::span<const xcb_keysym_t> symbolsOf(std::size_t keycode) const
    {
        const std::size_t perKey = keyboardMap->keysyms_per_keycode;
        return {xcb_get_keyboard_mapping_keysyms(keyboardMap.get()) + (keycode - firstKey) * perKey, perKey};
    }

    xcb_keycode_t firstKey;
    XcbReply<xcb_get_modifier_mapping_reply_t> modifierMap;
    XcbReply<xcb_get_keyboard_mapping_reply_t> keyboardMap;
};

bool isModifierSymbol(xcb_keysym_t symbol)
{
    return (symbol >= XKB_KEY_Shift_L && symbol <= XKB_KEY_Hyper_R) ||
           (symbol >= XKB_KEY_ISO_Lock && symbol <= XKB_KEY_ISO_Level5_Lock) ||
           symbol == XKB_KEY_Mode_switch || symbol == XKB_KEY_Num_Lock || symbol == XKB_KEY_Scroll_Lock;
}

/// The first modifier bit whose keys carry one of the two symbols; 0 when there is none.
std::uint16_t bitOf(const Keymap& keymap, xcb_keysym_t left, xcb_keysym_t right)
{
    const auto keys = keymap.modifierKeys();
    for (std::size_t i = 0; i < keys.size(); ++i) {
        if (keys[i] >= keymap.firstKey && std::ranges::any_of(keymap.symbolsOf(keys[i]), [&](auto symbol) {
                return symbol == left || symbol == right;
            })) {
            return static_cast<std::uint16_t>(1U << (i / keymap.keysPerModifier()));
        }
    }
    return 0;
}

struct MaskAndBit
{
    int mask;
    std::uint16_t bit;
};

std::array<MaskAndBit, 4> table(const ModifierMap& map)
{
    return {{{modifier::shift, XCB_MOD_MASK_SHIFT},
             {modifier::control, XCB_MOD_MASK_CONTROL},
             {modifier::alt, map.alt},
             {modifier::super, map.super}}};
}

} // namespace

std::optional<ModifierMap> ModifierMap::read(const XcbConnection& connection)
{
    const Keymap keymap(connection);
    if (!keymap.isComplete()) {
        return std::nullopt;
    }
    return ModifierMap{
        .alt = bitOf(keymap, XKB_KEY_Alt_L, XKB_KEY_Alt_R),
        .super = bitOf(keymap, XKB_KEY_Super_L, XKB_KEY_Super_R),
        .numLock = bitOf(keymap, XKB_KEY_Num_Lock, XKB_KEY_Num_Lock),
        .scrollLock = bitOf(keymap, XKB_KEY_Scroll_Lock, XKB_KEY_Scroll_Lock),
    };
}

std::uint16_t ModifierMap::locks() const
{
    return static_cast<std::uint16_t>(XCB_MOD_MASK_LOCK | numLock | scrollLock);
}

int ModifierMap::modifiers(std::uint32_t state) const
{
    unsigned rest = state & allModifierBits & ~unsigned{locks()};
    int modifiers = 0;
    for (const auto& [mask, bit] : table(*this)) {
        if ((rest & bit) != 0) {
            modifiers |= mask;
            // When a keymap assigns two modifiers to one bit, the bit means the first.
            rest &= ~unsigned{bit};
        }
    }
    return modifiers;
}

std::optional<int> ModifierMap::shortcutModifiers(std::uint32_t state) const
{
    unsigned others = state & allModifierBits & ~unsigned{locks()};
    for (const auto& [mask, bit] : table(*this)) {
        others &= ~unsigned{bit};
    }
    return others == 0 ? std::optional(modifiers(state)) : std::nullopt;
}

std::optional<std::uint16_t> ModifierMap::bits(int modifiers) const
{
    if ((modifiers & modifier::function) != 0) {
        return std::nullopt;
    }
    unsigned bits = 0;
    for (const auto& [mask, bit] : table(*this)) {
        if ((modifiers & mask) == 0) {
            continue;
        }
        if (bit == 0) {
            return std::nullopt;
        }
        bits |= bit;
    }
    return static_cast<std::uint16_t>(bits);
}

std::bitset<256> readModifierKeys(const XcbConnection& connection)
{
    std::bitset<256> keys;
    const Keymap keymap(connection);
    if (!keymap.isComplete()) {
        return keys;
    }
    for (const auto keycode : keymap.modifierKeys()) {
        keys.set(keycode);
    }
    keys.reset(0);
    // Keys that select the third level and above are not in the modifier map.
    for (std::size_t keycode = keymap.firstKey; keycode < keymap.firstKey + keymap.keyCount(); ++keycode) {
        if (isModifierSymbol(keymap.symbolsOf(keycode).front())) {
            keys.set(keycode);
        }
    }
    return keys;
}

} // namespace tintwick
