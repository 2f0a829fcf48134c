#include "PopupKeys.h"

#include "EvdevKeys.h"
#include "KeyCode.h"
#include "XcbConnection.h"

#include <QCoreApplication>

namespace tintwick {

namespace {

bool isAltKey(xcb_keycode_t keycode)
{
    const int keyCode = keyCodeForEvdev(keycode - xKeycodeOffset).value_or(-1);
    return keyCode == keycode::alt || keyCode == keycode::rightAlt;
}

} // namespace

PopupKeys::PopupKeys(const XcbConnection& connection, Receiver& receiver)
    : m_connection(connection)
    , m_receiver(receiver)
{
}

PopupKeys::~PopupKeys()
{
    setActive(false);
}

void PopupKeys::setActive(bool isActive)
{
    if (m_isActive == isActive) {
        return;
    }
    m_isActive = isActive;
    m_pressed.clear();
    m_lastRelease.reset();
    if (isActive) {
        QCoreApplication::instance()->installNativeEventFilter(this);
    } else {
        QCoreApplication::instance()->removeNativeEventFilter(this);
    }
}

bool PopupKeys::nativeEventFilter(const QByteArray& eventType, void* message, qintptr* /*result*/)
{
    if (eventType != QByteArrayLiteral("xcb_generic_event_t")) {
        return false;
    }
    // The toolkit gets keys as core events. An event that another client sent has the sent flag and is not matched here.
    const auto& event = *static_cast<const xcb_generic_event_t*>(message);
    switch (event.response_type) {
    case XCB_KEY_PRESS:
        return keyPressed(reinterpret_cast<const xcb_key_press_event_t&>(event));
    case XCB_KEY_RELEASE:
        return keyReleased(reinterpret_cast<const xcb_key_release_event_t&>(event));
    default:
        return false;
    }
}

// The toolkit's connection does not use detectable auto-repeat: a held key arrives as pairs of a release and a press with
// the same time stamp.
bool PopupKeys::keyPressed(const xcb_key_press_event_t& press)
{
    if (m_pressed.contains(press.detail) || m_lastRelease == std::pair(press.detail, press.time)) {
        return true;
    }
    m_lastRelease.reset();
    // The Alt key closes a menu when it is pressed alone, before the rest of the shortcut.
    if (isAltKey(press.detail)) {
        return true;
    }
    if (!m_receiver.popupKeyPressed(press.detail, press.state)) {
        return false;
    }
    // The shortcut may have closed the popup.
    if (m_isActive) {
        m_pressed.insert(press.detail);
    }
    return true;
}

bool PopupKeys::keyReleased(const xcb_key_release_event_t& release)
{
    if (!m_pressed.contains(release.detail)) {
        const bool isLateRepeat = m_lastRelease && m_lastRelease->first == release.detail;
        if (isLateRepeat) {
            // More than one pair may have been queued.
            m_lastRelease->second = release.time;
        }
        return isLateRepeat || isAltKey(release.detail);
    }
    if (isDown(release.detail)) {
        return true;
    }
    m_pressed.erase(release.detail);
    m_lastRelease = {release.detail, release.time};
    m_receiver.popupKeyReleased(release.detail);
    return true;
}

bool PopupKeys::isDown(xcb_keycode_t keycode) const
{
    const XcbReply<xcb_query_keymap_reply_t> keys(
        xcb_query_keymap_reply(m_connection.get(), xcb_query_keymap(m_connection.get()), nullptr));
    return keys && (keys->keys[keycode / 8] >> (keycode % 8) & 1) != 0;
}

} // namespace tintwick
