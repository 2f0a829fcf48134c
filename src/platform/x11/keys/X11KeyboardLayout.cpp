#include "X11KeyboardLayout.h"

#include "EvdevKeys.h"
#include "XkbEvents.h"

#include <xkbcommon/xkbcommon-x11.h>

#include <bitset>
#include <utility>

namespace tintwick {

namespace {

constexpr xkb_level_index_t withoutModifiers = 0;

/// The character on the lowest level of the key; 0 when the key types none or several.
std::uint32_t characterOf(xkb_keymap* keymap, xkb_keycode_t keycode, xkb_layout_index_t group)
{
    const xkb_keysym_t* symbols = nullptr;
    const int count = xkb_keymap_key_get_syms_by_level(keymap, keycode, group, withoutModifiers, &symbols);
    return count == 1 ? xkb_keysym_to_utf32(symbols[0]) : 0;
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
    const auto evdev = evdevForKeyCode(keyCode);
    const auto [keys, group] = asciiCapableLayout();
    if (!evdev || !keys) {
        return std::nullopt;
    }
    const char32_t character = characterOf(keys, static_cast<xkb_keycode_t>(*evdev + xKeycodeOffset), group);
    // Return, Tab and similar keys type a control character, which cannot be shown.
    if (character == 0 || !QChar::isPrint(character)) {
        return std::nullopt;
    }
    return QString::fromUcs4(&character, 1);
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
