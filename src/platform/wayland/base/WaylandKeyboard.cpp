#include "WaylandKeyboard.h"

#include "EvdevKeys.h"
#include "KeyCode.h"

#include <utility>

#include <sys/mman.h>
#include <unistd.h>

namespace tintwick {

namespace {

constexpr auto offset = static_cast<std::uint32_t>(xKeycodeOffset);

int modifiersOf(xkb_state& state)
{
    constexpr struct
    {
        const char* name;
        int mask;
    } rows[] = {{XKB_MOD_NAME_SHIFT, modifier::shift},
                {XKB_MOD_NAME_CTRL, modifier::control},
                {XKB_MOD_NAME_ALT, modifier::alt},
                {XKB_MOD_NAME_LOGO, modifier::super}};
    int modifiers = 0;
    for (const auto& [name, mask] : rows) {
        if (xkb_state_mod_name_is_active(&state, name, XKB_STATE_MODS_EFFECTIVE) == 1) {
            modifiers |= mask;
        }
    }
    return modifiers;
}

} // namespace

/// The handlers of the keyboard's events, in the order of the protocol.
struct WaylandKeyboard::Handlers
{
    static WaylandKeyboard& of(void* self) { return *static_cast<WaylandKeyboard*>(self); }

    static void keymap(void* self, wl_keyboard*, std::uint32_t format, std::int32_t file, std::uint32_t size)
    {
        if (format == WL_KEYBOARD_KEYMAP_FORMAT_XKB_V1) {
            of(self).readKeymap(file, size);
        }
        ::close(file);
    }

    // The keys that are down already belong to another client.
    static void enter(void* self, wl_keyboard*, std::uint32_t serial, wl_surface* surface, wl_array*)
    {
        of(self).m_lastSerial = serial;
        Q_EMIT of(self).entered(surface);
    }

    static void leave(void* self, wl_keyboard*, std::uint32_t, wl_surface*) { of(self).stop(); }

    static void key(void* self, wl_keyboard*, std::uint32_t serial, std::uint32_t, std::uint32_t key,
                    std::uint32_t state)
    {
        of(self).handleKey(key, state == WL_KEYBOARD_KEY_STATE_PRESSED, serial);
    }

    static void modifiers(void* self, wl_keyboard*, std::uint32_t, std::uint32_t depressed,
                          std::uint32_t latched, std::uint32_t locked, std::uint32_t group)
    {
        WaylandKeyboard& keyboard = of(self);
        if (keyboard.m_state) {
            xkb_state_update_mask(keyboard.m_state.get(), depressed, latched, locked, 0, 0, group);
        }
        if (std::exchange(keyboard.m_group, group) != group) {
            Q_EMIT keyboard.keymapChanged();
        }
    }

    static void repeatInfo(void* self, wl_keyboard*, std::int32_t perSecond, std::int32_t delay)
    {
        of(self).m_repeatInterval = std::chrono::milliseconds(perSecond > 0 ? 1000 / perSecond : 0);
        of(self).m_repeatDelay = std::chrono::milliseconds(delay);
    }
};

WaylandKeyboard::WaylandKeyboard(WlKeyboard keyboard)
    : m_keyboard(std::move(keyboard))
    , m_context(xkb_context_new(XKB_CONTEXT_NO_DEFAULT_INCLUDES))
{
    static constexpr wl_keyboard_listener handlers{&Handlers::keymap,    &Handlers::enter,
                                                   &Handlers::leave,     &Handlers::key,
                                                   &Handlers::modifiers, &Handlers::repeatInfo};
    wl_keyboard_add_listener(m_keyboard.get(), &handlers, this);
    connect(&m_repeatTimer, &QTimer::timeout, this, &WaylandKeyboard::repeat);
}

WaylandKeyboard::~WaylandKeyboard() = default;

void WaylandKeyboard::readKeymap(int file, std::uint32_t size)
{
    void* text = ::mmap(nullptr, size, PROT_READ, MAP_PRIVATE, file, 0);
    if (text == MAP_FAILED) {
        return;
    }
    m_state.reset();
    // The text ends with a zero.
    m_keymap.reset(xkb_keymap_new_from_buffer(m_context.get(), static_cast<const char*>(text), size - 1,
                                              XKB_KEYMAP_FORMAT_TEXT_V1, XKB_KEYMAP_COMPILE_NO_FLAGS));
    ::munmap(text, size);
    if (m_keymap) {
        m_state.reset(xkb_state_new(m_keymap.get()));
    }
    Q_EMIT keymapChanged();
}

void WaylandKeyboard::handleKey(std::uint32_t key, bool isDown, std::uint32_t serial)
{
    m_lastSerial = serial;
    if (!isDown) {
        if (key == m_repeatedKey) {
            m_repeatTimer.stop();
        }
        if (m_keysDown.erase(key) > 0 && m_keysDown.empty()) {
            Q_EMIT released();
        }
        return;
    }
    m_keysDown.insert(key);
    if (m_keymap && xkb_keymap_key_repeats(m_keymap.get(), key + offset) == 1 &&
        m_repeatInterval.count() > 0) {
        m_repeatedKey = key;
        m_repeatTimer.start(m_repeatDelay);
    }
    Q_EMIT keyPressed(toKeyPress(key, false), serial);
}

KeyPress WaylandKeyboard::toKeyPress(std::uint32_t key, bool isRepeat) const
{
    KeyPress press{.keyCode = keyCodeForEvdev(static_cast<int>(key)).value_or(-1), .isRepeat = isRepeat};
    if (m_state) {
        press.modifiers = modifiers();
        press.character = xkb_keysym_to_utf32(xkb_state_key_get_one_sym(m_state.get(), key + offset));
    }
    return press;
}

int WaylandKeyboard::modifiers() const
{
    return m_state ? modifiersOf(*m_state) : 0;
}

void WaylandKeyboard::repeat()
{
    m_repeatTimer.setInterval(m_repeatInterval);
    Q_EMIT keyPressed(toKeyPress(m_repeatedKey, true), m_lastSerial);
}

void WaylandKeyboard::stop()
{
    m_repeatTimer.stop();
    if (!m_keysDown.empty()) {
        m_keysDown.clear();
        Q_EMIT released();
    }
}

} // namespace tintwick
