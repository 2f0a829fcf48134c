#include "support/wayland/VirtualInput.h"

#include <xkbcommon/xkbcommon.h>

#include <chrono>
#include <cstdlib>
#include <cstring>
#include <stdexcept>
#include <string>

#include <sys/mman.h>
#include <unistd.h>

namespace tintwick {

namespace {

std::uint32_t now()
{
    using namespace std::chrono;
    return static_cast<std::uint32_t>(
        duration_cast<milliseconds>(steady_clock::now().time_since_epoch()).count());
}

struct KeyDeleter
{
    void operator()(xkb_context* context) const { xkb_context_unref(context); }
    void operator()(xkb_keymap* keymap) const { xkb_keymap_unref(keymap); }
    void operator()(xkb_state* state) const { xkb_state_unref(state); }
};

} // namespace

/// The compositor takes the state of the modifiers from the client.
struct VirtualInput::Keys
{
    std::unique_ptr<xkb_context, KeyDeleter> context{xkb_context_new(XKB_CONTEXT_NO_FLAGS)};
    std::unique_ptr<xkb_keymap, KeyDeleter> keymap;
    std::unique_ptr<xkb_state, KeyDeleter> state;
};

VirtualInput::VirtualInput(WaylandClient& client)
    : m_client(client)
    , m_seat(client.bind<wl_seat>(wl_seat_interface, 1))
    , m_pointerManager(
          client.bind<zwlr_virtual_pointer_manager_v1>(zwlr_virtual_pointer_manager_v1_interface, 2))
    , m_keyboardManager(
          client.bind<zwp_virtual_keyboard_manager_v1>(zwp_virtual_keyboard_manager_v1_interface, 1))
    , m_keys(std::make_unique<Keys>())
{
    if (!m_seat || !m_pointerManager || !m_keyboardManager) {
        throw std::runtime_error("the compositor has no virtual input");
    }
    m_pointer.reset(
        zwlr_virtual_pointer_manager_v1_create_virtual_pointer(m_pointerManager.get(), m_seat.get()));
    m_keyboard.reset(
        zwp_virtual_keyboard_manager_v1_create_virtual_keyboard(m_keyboardManager.get(), m_seat.get()));
    sendKeymap();
    m_client.synchronize();
}

VirtualInput::~VirtualInput() = default;

void VirtualInput::sendKeymap()
{
    const xkb_rule_names names{
        .rules = "evdev", .model = "pc105", .layout = "us", .variant = "", .options = ""};
    m_keys->keymap.reset(
        xkb_keymap_new_from_names(m_keys->context.get(), &names, XKB_KEYMAP_COMPILE_NO_FLAGS));
    if (!m_keys->keymap) {
        throw std::runtime_error("no keyboard layout");
    }
    m_keys->state.reset(xkb_state_new(m_keys->keymap.get()));
    const std::unique_ptr<char, decltype(&std::free)> text(
        xkb_keymap_get_as_string(m_keys->keymap.get(), XKB_KEYMAP_FORMAT_TEXT_V1), &std::free);
    const std::size_t length = std::strlen(text.get()) + 1;
    const int file = ::memfd_create("tintwick-test-keymap", MFD_CLOEXEC);
    if (file < 0 || ::write(file, text.get(), length) != static_cast<ssize_t>(length)) {
        ::close(file);
        throw std::runtime_error("no shared memory");
    }
    zwp_virtual_keyboard_v1_keymap(m_keyboard.get(), WL_KEYBOARD_KEYMAP_FORMAT_XKB_V1, file,
                                   static_cast<std::uint32_t>(length));
    m_client.synchronize();
    ::close(file);
}

void VirtualInput::movePointer(QPointF position, const QRect& desktop)
{
    // The protocol has whole numbers only; a fine grid makes each physical pixel reachable.
    constexpr double steps = 256;
    const QPointF offset = (position - desktop.topLeft()) * steps;
    zwlr_virtual_pointer_v1_motion_absolute(m_pointer.get(), now(), static_cast<std::uint32_t>(offset.x()),
                                            static_cast<std::uint32_t>(offset.y()),
                                            static_cast<std::uint32_t>(desktop.width() * steps),
                                            static_cast<std::uint32_t>(desktop.height() * steps));
    zwlr_virtual_pointer_v1_frame(m_pointer.get());
    m_client.synchronize();
}

void VirtualInput::setButton(std::uint32_t button, bool isDown)
{
    zwlr_virtual_pointer_v1_button(m_pointer.get(), now(), button,
                                   isDown ? WL_POINTER_BUTTON_STATE_PRESSED
                                          : WL_POINTER_BUTTON_STATE_RELEASED);
    zwlr_virtual_pointer_v1_frame(m_pointer.get());
    m_client.synchronize();
}

void VirtualInput::scroll(int notches)
{
    constexpr int unitsOfNotch = 15;
    const int down = notches > 0 ? -1 : 1;
    for (int i = 0; i < std::abs(notches); ++i) {
        zwlr_virtual_pointer_v1_axis_source(m_pointer.get(), WL_POINTER_AXIS_SOURCE_WHEEL);
        zwlr_virtual_pointer_v1_axis_discrete(m_pointer.get(), now(), WL_POINTER_AXIS_VERTICAL_SCROLL,
                                              wl_fixed_from_int(unitsOfNotch * down), down);
        zwlr_virtual_pointer_v1_frame(m_pointer.get());
    }
    m_client.synchronize();
}

void VirtualInput::setKey(std::uint32_t key, bool isDown)
{
    constexpr std::uint32_t offsetOfXkb = 8;
    zwp_virtual_keyboard_v1_key(m_keyboard.get(), now(), key,
                                isDown ? WL_KEYBOARD_KEY_STATE_PRESSED : WL_KEYBOARD_KEY_STATE_RELEASED);
    xkb_state* state = m_keys->state.get();
    if (xkb_state_update_key(state, key + offsetOfXkb, isDown ? XKB_KEY_DOWN : XKB_KEY_UP) != 0) {
        zwp_virtual_keyboard_v1_modifiers(m_keyboard.get(),
                                          xkb_state_serialize_mods(state, XKB_STATE_MODS_DEPRESSED),
                                          xkb_state_serialize_mods(state, XKB_STATE_MODS_LATCHED),
                                          xkb_state_serialize_mods(state, XKB_STATE_MODS_LOCKED),
                                          xkb_state_serialize_layout(state, XKB_STATE_LAYOUT_EFFECTIVE));
    }
    m_client.synchronize();
}

} // namespace tintwick
