#include "ShortcutSymbols.h"

#include "EvdevKeys.h"

#include <algorithm>
#include <bitset>
#include <cstdint>
#include <iterator>

namespace tintwick {

namespace {

constexpr xkb_level_index_t withoutModifiers = 0;

xkb_keysym_t lowestSymbol(xkb_keymap* keymap, xkb_keycode_t keycode, xkb_layout_index_t group)
{
    const xkb_keysym_t* symbols = nullptr;
    const int count = xkb_keymap_key_get_syms_by_level(keymap, keycode, group, withoutModifiers, &symbols);
    return count == 1 ? symbols[0] : xkb_keysym_t{XKB_KEY_NoSymbol};
}

/// The accent of a dead key as a character with a width of its own; 0 for other symbols. Accents that have no such
/// character are combining characters, which need another character below them.
char32_t accentOf(xkb_keysym_t symbol)
{
    constexpr struct
    {
        xkb_keysym_t symbol;
        char32_t accent;
    } accents[] = {
        {XKB_KEY_dead_grave, U'`'},
        {XKB_KEY_dead_acute, U'\u00B4'},
        {XKB_KEY_dead_circumflex, U'^'},
        {XKB_KEY_dead_tilde, U'~'},
        {XKB_KEY_dead_macron, U'\u00AF'},
        {XKB_KEY_dead_breve, U'\u02D8'},
        {XKB_KEY_dead_abovedot, U'\u02D9'},
        {XKB_KEY_dead_diaeresis, U'\u00A8'},
        {XKB_KEY_dead_abovering, U'\u02DA'},
        {XKB_KEY_dead_doubleacute, U'\u02DD'},
        {XKB_KEY_dead_caron, U'\u02C7'},
        {XKB_KEY_dead_cedilla, U'\u00B8'},
        {XKB_KEY_dead_ogonek, U'\u02DB'},
        {XKB_KEY_dead_iota, U'\u037A'},
        {XKB_KEY_dead_stroke, U'/'},
        {XKB_KEY_dead_abovecomma, U'\u1FBF'},
        {XKB_KEY_dead_abovereversedcomma, U'\u1FFE'},
        {XKB_KEY_dead_doublegrave, U'\u02F5'},
        {XKB_KEY_dead_belowdot, U'\u0323'},
        {XKB_KEY_dead_hook, U'\u0309'},
        {XKB_KEY_dead_horn, U'\u031B'},
        {XKB_KEY_dead_currency, U'\u00A4'},
        {XKB_KEY_dead_greek, U'\u03BC'},
        {XKB_KEY_dead_voiced_sound, U'\u309B'},
        {XKB_KEY_dead_semivoiced_sound, U'\u309C'},
    };
    const auto* const found = std::ranges::find(accents, symbol, [](const auto& row) { return row.symbol; });
    return found != std::end(accents) ? found->accent : 0;
}

/// The character on the lowest level of the key; 0 when the key types none or several.
std::uint32_t characterOf(xkb_keymap* keymap, xkb_keycode_t keycode, xkb_layout_index_t group)
{
    return xkb_keysym_to_utf32(lowestSymbol(keymap, keycode, group));
}

bool isAsciiCapable(xkb_keymap* keymap, xkb_layout_index_t group)
{
    std::bitset<'z' - 'a' + 1> letters;
    for (auto keycode = xkb_keymap_min_keycode(keymap); keycode <= xkb_keymap_max_keycode(keymap);
         ++keycode) {
        const auto character = characterOf(keymap, keycode, group);
        if (character >= 'a' && character <= 'z') {
            letters.set(character - 'a');
        }
    }
    // A Latin layout may keep a few letters on higher levels, as the Lithuanian layout does; other layouts have almost
    // none.
    return letters.count() > letters.size() / 2;
}

xkb_keysym_t symbolAt(int keyCode, xkb_keymap* keymap, xkb_layout_index_t group)
{
    const auto evdev = evdevForKeyCode(keyCode);
    return evdev ? lowestSymbol(keymap, static_cast<xkb_keycode_t>(*evdev + xKeycodeOffset), group)
                 : xkb_keysym_t{XKB_KEY_NoSymbol};
}

} // namespace

xkb_keysym_t ShortcutSymbols::symbolOf(int keyCode, xkb_keymap* keymap, xkb_layout_index_t current) const
{
    if (!keymap) {
        return XKB_KEY_NoSymbol;
    }
    if (isAsciiCapable(keymap, current)) {
        return symbolAt(keyCode, keymap, current);
    }
    for (xkb_layout_index_t group = 0; group < xkb_keymap_num_layouts(keymap); ++group) {
        if (isAsciiCapable(keymap, group)) {
            return symbolAt(keyCode, keymap, group);
        }
    }
    return usSymbolOf(keyCode);
}

xkb_keysym_t ShortcutSymbols::usSymbolOf(int keyCode) const
{
    auto* const keymap = usKeymap();
    return keymap ? symbolAt(keyCode, keymap, 0) : xkb_keysym_t{XKB_KEY_NoSymbol};
}

xkb_keymap* ShortcutSymbols::usKeymap() const
{
    if (!m_usKeymap) {
        const std::unique_ptr<xkb_context, XkbUnref> files(xkb_context_new(XKB_CONTEXT_NO_ENVIRONMENT_NAMES));
        constexpr xkb_rule_names us{"evdev", "pc105", "us", nullptr, nullptr};
        m_usKeymap.reset(files ? xkb_keymap_new_from_names(files.get(), &us, XKB_KEYMAP_COMPILE_NO_FLAGS)
                               : nullptr);
    }
    return m_usKeymap.get();
}

std::optional<QString> characterOfSymbol(xkb_keysym_t symbol)
{
    const char32_t character = xkb_keysym_to_utf32(symbol);
    // Return, Tab and similar keys type a control character, which cannot be shown.
    if (character == 0 || !QChar::isPrint(character)) {
        return std::nullopt;
    }
    return QString::fromUcs4(&character, 1);
}

std::optional<QString> accentOfSymbol(xkb_keysym_t symbol)
{
    const char32_t accent = accentOf(symbol);
    if (accent == 0) {
        return std::nullopt;
    }
    constexpr char32_t dottedCircle = 0x25CC;
    const QString text = QString::fromUcs4(&accent, 1);
    return QChar::isMark(accent) ? QString::fromUcs4(&dottedCircle, 1) + text : text;
}

} // namespace tintwick
