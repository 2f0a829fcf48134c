#include "X11KeyboardLayout.h"

#include "EvdevKeys.h"
#include "XkbEvents.h"

#include <xkbcommon/xkbcommon-x11.h>

#include <algorithm>
#include <bitset>
#include <iterator>
#include <utility>

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

std::uint32_t readCurrentGroup(const XcbConnection& connection)
{
    auto* const c = connection.get();
    const XcbReply<xcb_xkb_get_state_reply_t> state(
        xcb_xkb_get_state_reply(c, xcb_xkb_get_state(c, XCB_XKB_ID_USE_CORE_KBD), nullptr));
    return state ? state->lockedGroup : 0;
}

} // namespace

X11KeyboardLayout::X11KeyboardLayout(XcbConnection& connection, XkbKeymap& keymap)
    : m_connection(connection)
    , m_keymap(keymap)
    , m_xkbEvent(listenForXkbEvents(connection))
    , m_currentGroup(m_xkbEvent != 0 ? readCurrentGroup(connection) : 0)
    , m_subscription(connection.subscribe(*this))
{
}

X11KeyboardLayout::~X11KeyboardLayout() = default;

std::optional<QString> X11KeyboardLayout::characterForKey(int keyCode) const
{
    const char32_t character = xkb_keysym_to_utf32(symbolOf(keyCode));
    // Return, Tab and similar keys type a control character, which cannot be shown.
    if (character == 0 || !QChar::isPrint(character)) {
        return std::nullopt;
    }
    return QString::fromUcs4(&character, 1);
}

std::optional<QString> X11KeyboardLayout::accentForKey(int keyCode) const
{
    const char32_t accent = accentOf(symbolOf(keyCode));
    if (accent == 0) {
        return std::nullopt;
    }
    constexpr char32_t dottedCircle = 0x25CC;
    const QString text = QString::fromUcs4(&accent, 1);
    return QChar::isMark(accent) ? QString::fromUcs4(&dottedCircle, 1) + text : text;
}

xkb_keysym_t X11KeyboardLayout::symbolOf(int keyCode) const
{
    const auto evdev = evdevForKeyCode(keyCode);
    const auto [keys, group] = asciiCapableLayout();
    return evdev && keys ? lowestSymbol(keys, static_cast<xkb_keycode_t>(*evdev + xKeycodeOffset), group)
                         : xkb_keysym_t{XKB_KEY_NoSymbol};
}

X11KeyboardLayout::Layout X11KeyboardLayout::asciiCapableLayout() const
{
    auto* const keys = m_keymap.get();
    if (!keys) {
        return {};
    }
    if (isAsciiCapable(keys, m_currentGroup)) {
        return {keys, m_currentGroup};
    }
    for (xkb_layout_index_t group = 0; group < xkb_keymap_num_layouts(keys); ++group) {
        if (isAsciiCapable(keys, group)) {
            return {keys, group};
        }
    }
    return {usKeymap(), 0};
}

xkb_keymap* X11KeyboardLayout::usKeymap() const
{
    if (!m_usKeymap) {
        const std::unique_ptr<xkb_context, XkbUnref> files(xkb_context_new(XKB_CONTEXT_NO_ENVIRONMENT_NAMES));
        constexpr xkb_rule_names us{"evdev", "pc105", "us", nullptr, nullptr};
        m_usKeymap.reset(files ? xkb_keymap_new_from_names(files.get(), &us, XKB_KEYMAP_COMPILE_NO_FLAGS)
                               : nullptr);
    }
    return m_usKeymap.get();
}

void X11KeyboardLayout::handleEvent(const xcb_generic_event_t& event)
{
    switch (xkbEventKind(event, m_xkbEvent)) {
    case XCB_XKB_NEW_KEYBOARD_NOTIFY:
    case XCB_XKB_MAP_NOTIFY:
        m_hasUnreportedChange = true;
        break;
    case XCB_XKB_STATE_NOTIFY: {
        const auto group = reinterpret_cast<const xcb_xkb_state_notify_event_t&>(event).lockedGroup;
        if (group != m_currentGroup) {
            m_currentGroup = group;
            m_hasUnreportedChange = true;
        }
        break;
    }
    default:
        break;
    }
}

// One new layout arrives as many events, which are reported once.
void X11KeyboardLayout::eventsDrained()
{
    if (std::exchange(m_hasUnreportedChange, false)) {
        m_currentGroup = readCurrentGroup(m_connection);
        Q_EMIT changed();
    }
}

} // namespace tintwick
