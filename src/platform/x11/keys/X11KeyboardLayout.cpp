#include "X11KeyboardLayout.h"

#include "EvdevKeys.h"
#include "XkbEvents.h"

#include <xkbcommon/xkbcommon-x11.h>

#include <bitset>
#include <utility>

namespace tintwick {

namespace {

constexpr xkb_level_index_t withoutModifiers = 0;

/// The character on the key's lowest level; 0 when it types none or several.
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
    // A Latin layout may keep a few letters off its lowest level, as the Lithuanian one does; others have hardly any.
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

void X11KeyboardLayout::Unref::operator()(xkb_context* context) const
{
    xkb_context_unref(context);
}

void X11KeyboardLayout::Unref::operator()(xkb_keymap* keymap) const
{
    xkb_keymap_unref(keymap);
}

X11KeyboardLayout::X11KeyboardLayout(XcbConnection& connection)
    : m_connection(connection)
    , m_context(xkb_context_new(XKB_CONTEXT_NO_DEFAULT_INCLUDES))
    , m_xkbEvent(listenForXkbEvents(connection))
    , m_currentGroup(m_xkbEvent != 0 ? readCurrentGroup(connection) : 0)
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
    // Return, Tab and the like have a character too, but none that could be shown.
    if (character == 0 || !QChar::isPrint(character)) {
        return std::nullopt;
    }
    return QString::fromUcs4(&character, 1);
}

void X11KeyboardLayout::setLayoutChangedHandler(LayoutChanged handler)
{
    if (!m_subscription) {
        m_subscription = m_connection.subscribe(*this);
    }
    m_layoutChanged = std::move(handler);
}

xkb_keymap* X11KeyboardLayout::keymap() const
{
    // A request of an extension that the server lacks would cost us the connection.
    if (m_xkbEvent != 0 && std::exchange(m_keymapIsOutdated, false)) {
        const auto device = xkb_x11_get_core_keyboard_device_id(m_connection.get());
        m_keymap.reset(device < 0 ? nullptr
                                  : xkb_x11_keymap_new_from_device(m_context.get(), m_connection.get(),
                                                                   device, XKB_KEYMAP_COMPILE_NO_FLAGS));
    }
    return m_keymap.get();
}

X11KeyboardLayout::Layout X11KeyboardLayout::asciiCapableLayout() const
{
    auto* const keys = keymap();
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
    return {americanKeymap(), 0};
}

xkb_keymap* X11KeyboardLayout::americanKeymap() const
{
    if (!m_americanKeymap) {
        const std::unique_ptr<xkb_context, Unref> files(xkb_context_new(XKB_CONTEXT_NO_ENVIRONMENT_NAMES));
        constexpr xkb_rule_names american{"evdev", "pc105", "us", nullptr, nullptr};
        m_americanKeymap.reset(
            files ? xkb_keymap_new_from_names(files.get(), &american, XKB_KEYMAP_COMPILE_NO_FLAGS) : nullptr);
    }
    return m_americanKeymap.get();
}

void X11KeyboardLayout::handleEvent(const xcb_generic_event_t& event)
{
    switch (xkbEventKind(event, m_xkbEvent)) {
    case XCB_XKB_NEW_KEYBOARD_NOTIFY:
    case XCB_XKB_MAP_NOTIFY:
        m_keymapIsOutdated = true;
        m_changeIsUntold = true;
        break;
    case XCB_XKB_STATE_NOTIFY: {
        const auto group = reinterpret_cast<const xcb_xkb_state_notify_event_t&>(event).lockedGroup;
        if (group != m_currentGroup) {
            m_currentGroup = group;
            m_changeIsUntold = true;
        }
        break;
    }
    default:
        break;
    }
}

// One new layout is many events; they are told once.
void X11KeyboardLayout::eventsDrained()
{
    if (std::exchange(m_changeIsUntold, false)) {
        m_currentGroup = readCurrentGroup(m_connection);
        if (const auto handler = m_layoutChanged) {
            handler();
        }
    }
}

} // namespace tintwick
