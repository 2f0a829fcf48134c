#pragma once

#include "KeyRecording.h"
#include "ModifierMap.h"
#include "XcbConnection.h"
#include "XkbKeymap.h"

#include <QAbstractNativeEventFilter>

#include <xcb/xinput.h>

#include <bitset>
#include <cstdint>

namespace tintwick {

/// An active grab of the keyboard, which comes before all passive ones. The server gives it back when the connection
/// closes, however the process ends.
class X11KeyRecording final : public KeyRecording,
                              private XcbConnection::Sink,
                              private QAbstractNativeEventFilter
{
public:
    /// Both must outlive this object.
    X11KeyRecording(XcbConnection& connection, XkbKeymap& keymap);
    ~X11KeyRecording() override;

    [[nodiscard]] Outcome begin(Listener& listener) override;
    void end(Listener& listener) override;

private:
    void handleEvent(const xcb_generic_event_t& event) override;
    bool nativeEventFilter(const QByteArray& eventType, void* message, qintptr* result) override;

    void keyPressed(const xcb_input_key_press_event_t& event);
    void keyReleased(std::uint32_t keycode);
    [[nodiscard]] bool grab();
    void giveBack();

    XcbConnection& m_connection;
    XkbKeymap& m_keymap;
    std::uint8_t m_extension = 0;
    std::uint16_t m_keyboard = 0;
    ModifierMap m_modifierMap;
    std::bitset<256> m_modifierKeys;

    /// None while idle, and while only the releases of the last recording are awaited.
    Listener* m_listener = nullptr;
    bool m_holdsKeyboard = false;
    std::bitset<256> m_keysDown;
    XcbConnection::Subscription m_subscription;
};

} // namespace tintwick
