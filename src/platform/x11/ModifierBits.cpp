#include "platform/x11/ModifierBits.h"

#include "platform/KeyCode.h"
#include "platform/x11/XcbConnection.h"

#include <xkbcommon/xkbcommon-keysyms.h>

#include <algorithm>
#include <span>
#include <utility>

namespace tintwick {

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
    auto* const c = connection.get();
    const auto first = xcb_get_setup(c)->min_keycode;
    const auto count = static_cast<std::uint8_t>(xcb_get_setup(c)->max_keycode - first + 1);
    const auto modifierCookie = xcb_get_modifier_mapping(c);
    const auto keyboardCookie = xcb_get_keyboard_mapping(c, first, count);
    const XcbReply<xcb_get_modifier_mapping_reply_t> modifierMap(
        xcb_get_modifier_mapping_reply(c, modifierCookie, nullptr));
    const XcbReply<xcb_get_keyboard_mapping_reply_t> keyboardMap(
        xcb_get_keyboard_mapping_reply(c, keyboardCookie, nullptr));
    if (!modifierMap || !keyboardMap) {
        return std::nullopt;
    }

    const std::span keycodes(
        xcb_get_modifier_mapping_keycodes(modifierMap.get()),
        static_cast<std::size_t>(xcb_get_modifier_mapping_keycodes_length(modifierMap.get())));
    const std::span symbols(
        xcb_get_keyboard_mapping_keysyms(keyboardMap.get()),
        static_cast<std::size_t>(xcb_get_keyboard_mapping_keysyms_length(keyboardMap.get())));
    const std::size_t keysPerModifier = modifierMap->keycodes_per_modifier;
    const std::size_t symbolsPerKey = keyboardMap->keysyms_per_keycode;

    // The first bit whose keys carry one of the two symbols.
    const auto bitOf = [&](xcb_keysym_t left, xcb_keysym_t right) -> std::uint16_t {
        for (std::size_t i = 0; i < keycodes.size(); ++i) {
            if (keycodes[i] < first) {
                continue;
            }
            const auto ofKey =
                symbols.subspan((keycodes[i] - std::size_t{first}) * symbolsPerKey, symbolsPerKey);
            if (std::ranges::any_of(ofKey, [&](auto symbol) { return symbol == left || symbol == right; })) {
                return static_cast<std::uint16_t>(1U << (i / keysPerModifier));
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
    auto* const c = connection.get();
    const XcbReply<xcb_get_modifier_mapping_reply_t> mapping(
        xcb_get_modifier_mapping_reply(c, xcb_get_modifier_mapping(c), nullptr));
    std::bitset<256> keys;
    if (mapping) {
        const auto* const first = xcb_get_modifier_mapping_keycodes(mapping.get());
        std::for_each(first, first + xcb_get_modifier_mapping_keycodes_length(mapping.get()),
                      [&keys](xcb_keycode_t keycode) { keys.set(keycode); });
        // Fills the places that have no key.
        keys.reset(0);
    }
    return keys;
}

} // namespace tintwick
