#include "X11KeyRecording.h"

#include "EvdevKeys.h"
#include "GrabRetry.h"
#include "ToolkitConnection.h"
#include "XInput.h"

#include <QCoreApplication>

#include <utility>

namespace tintwick {

X11KeyRecording::X11KeyRecording(XcbConnection& connection, XkbKeymap& keymap)
    : m_connection(connection)
    , m_keymap(keymap)
    , m_extension(openInputExtension(connection))
{
}

X11KeyRecording::~X11KeyRecording()
{
    giveBack();
}

KeyRecording::Outcome X11KeyRecording::begin()
{
    if (m_isRecording) {
        end();
        Q_EMIT lost();
    }
    // Wait until the server has processed a release of the toolkit's own grab.
    toolkit::sync();
    const auto keyboard = m_extension != 0 ? masterKeyboard(m_connection) : std::nullopt;
    const auto map = ModifierMap::read(m_connection);
    if (!keyboard || !map) {
        return Outcome::Refused;
    }
    m_keyboard = *keyboard;
    m_modifierMap = *map;
    m_modifierKeys = readModifierKeys(m_connection);
    if (!retryGrab([this] { return grab(); })) {
        return Outcome::Refused;
    }
    m_isRecording = true;
    if (!std::exchange(m_holdsKeyboard, true)) {
        m_subscription = m_connection.subscribe(*this);
        QCoreApplication::instance()->installNativeEventFilter(this);
    }
    return Outcome::Started;
}

void X11KeyRecording::end()
{
    if (std::exchange(m_isRecording, false) && m_keysDown.none()) {
        giveBack();
    }
}

void X11KeyRecording::handleEvent(const xcb_generic_event_t& event)
{
    if ((event.response_type & 0x7f) != XCB_GE_GENERIC) {
        return;
    }
    const auto& generic = reinterpret_cast<const xcb_ge_generic_event_t&>(event);
    if (generic.extension != m_extension) {
        return;
    }
    const auto& key = reinterpret_cast<const xcb_input_key_press_event_t&>(event);
    if (generic.event_type == XCB_INPUT_KEY_PRESS) {
        handlePress(key);
    } else if (generic.event_type == XCB_INPUT_KEY_RELEASE) {
        handleRelease(key.detail);
    }
}

// The server sends the toolkit a FocusOut event for our grab, after which the toolkit would deactivate its window. The focus
// itself has not moved: an event for that has another mode.
bool X11KeyRecording::nativeEventFilter(const QByteArray& eventType, void* message, qintptr* /*result*/)
{
    if (eventType != QByteArrayLiteral("xcb_generic_event_t")) {
        return false;
    }
    const auto& event = *static_cast<const xcb_generic_event_t*>(message);
    return event.response_type == XCB_FOCUS_OUT &&
           reinterpret_cast<const xcb_focus_out_event_t&>(event).mode == XCB_NOTIFY_MODE_GRAB;
}

void X11KeyRecording::handlePress(const xcb_input_key_press_event_t& event)
{
    const auto keycode = event.detail;
    if (keycode >= m_keysDown.size()) {
        return;
    }
    m_keysDown.set(keycode);
    const char32_t character = m_keymap.character(keycode, event.mods.effective, event.group.effective);
    // A key that types a character, such as Escape in the place of Caps Lock, is a modifier key on another level only.
    if (!m_isRecording || (m_modifierKeys.test(keycode) && character == 0)) {
        return;
    }
    const auto modifiers = m_modifierMap.shortcutModifiers(event.mods.effective);
    const auto position = keyCodeForEvdev(static_cast<int>(keycode) - xKeycodeOffset);
    KeyPress press;
    press.keyCode = position && modifiers ? *position : -1;
    press.modifiers = modifiers.value_or(0);
    press.isRepeat = (event.flags & XCB_INPUT_KEY_EVENT_FLAGS_KEY_REPEAT) != 0;
    press.hasOtherModifier = !modifiers;
    press.character = character;
    Q_EMIT keyPressed(press);
}

void X11KeyRecording::handleRelease(std::uint32_t keycode)
{
    if (keycode < m_keysDown.size()) {
        m_keysDown.reset(keycode);
    }
    if (!m_isRecording && m_keysDown.none()) {
        giveBack();
    }
}

bool X11KeyRecording::grab()
{
    xcb_connection_t* c = m_connection.get();
    constexpr std::uint32_t events = XCB_INPUT_XI_EVENT_MASK_KEY_PRESS | XCB_INPUT_XI_EVENT_MASK_KEY_RELEASE;
    const auto cookie = xcb_input_xi_grab_device(c, m_connection.root(), XCB_CURRENT_TIME, XCB_CURSOR_NONE,
                                                 m_keyboard, XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC,
                                                 XCB_INPUT_GRAB_OWNER_NO_OWNER, 1, &events);
    const XcbReply<xcb_input_xi_grab_device_reply_t> reply(
        xcb_input_xi_grab_device_reply(c, cookie, nullptr));
    return reply && reply->status == XCB_GRAB_STATUS_SUCCESS;
}

void X11KeyRecording::giveBack()
{
    if (!std::exchange(m_holdsKeyboard, false)) {
        return;
    }
    xcb_input_xi_ungrab_device(m_connection.get(), XCB_CURRENT_TIME, m_keyboard);
    m_connection.flush();
    m_keysDown.reset();
    m_subscription = {};
    QCoreApplication::instance()->removeNativeEventFilter(this);
}

} // namespace tintwick
