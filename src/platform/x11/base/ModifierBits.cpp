#include "ModifierBits.h"

#include "KeyCode.h"
#include "XcbConnection.h"

#include <xkbcommon/xkbcommon-keysyms.h>

#include <algorithm>
#include <span>
#include <utility>

namespace tintwick {

namespace {

/// What the server's keymap says, in the words of the core protocol.
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

    /// As many for each of the eight modifiers; 0 fills the places that have no key.
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

} // namespace

std::uint16_t ModifierBits::locks() const
{
    return static_cast<std::uint16_t>(XCB_MOD_MASK_LOCK | numLock | scrollLock);
}

std::optional<int> ModifierBits::carbonModifiers(std::uint32_t state) const
{
    unsigned rest = state & allModifierBits & ~unsigned{locks()};
    int modifiers = 0;
    for (const auto& [bit, mask] : {std::pair<unsigned, int>{XCB_MOD_MASK_SHIFT, modifier::shift},
                                    {XCB_MOD_MASK_CONTROL, modifier::control},
                                    {option, modifier::option},
                                    {command, modifier::command}}) {
        if ((rest & bit) != 0) {
            modifiers |= mask;
            rest &= ~bit;
        }
    }
    return rest == 0 ? std::optional(modifiers) : std::nullopt;
}

std::optional<ModifierBits> readModifierBits(const XcbConnection& connection)
{
    const Keymap keymap(connection);
    if (!keymap.isComplete()) {
        return std::nullopt;
    }
    // The first bit whose keys carry one of the two symbols.
    const auto bitOf = [&keymap](xcb_keysym_t left, xcb_keysym_t right) -> std::uint16_t {
        const auto keys = keymap.modifierKeys();
        for (std::size_t i = 0; i < keys.size(); ++i) {
            if (keys[i] >= keymap.firstKey &&
                std::ranges::any_of(keymap.symbolsOf(keys[i]),
                                    [&](auto symbol) { return symbol == left || symbol == right; })) {
                return static_cast<std::uint16_t>(1U << (i / keymap.keysPerModifier()));
            }
        }
        return 0;
    };
    return ModifierBits{
        .option = bitOf(XKB_KEY_Alt_L, XKB_KEY_Alt_R),
        .command = bitOf(XKB_KEY_Super_L, XKB_KEY_Super_R),
        .numLock = bitOf(XKB_KEY_Num_Lock, XKB_KEY_Num_Lock),
        .scrollLock = bitOf(XKB_KEY_Scroll_Lock, XKB_KEY_Scroll_Lock),
    };
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
    // What shifts to the third level and beyond has no place among the eight modifiers.
    for (std::size_t keycode = keymap.firstKey; keycode < keymap.firstKey + keymap.keyCount(); ++keycode) {
        if (isModifierSymbol(keymap.symbolsOf(keycode).front())) {
            keys.set(keycode);
        }
    }
    return keys;
}

} // namespace tintwick
