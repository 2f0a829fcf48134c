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

/// Records with an active keyboard grab, which has priority over passive grabs. The server releases it when the
/// connection closes, also when the process is killed.
class X11KeyRecording final : public KeyRecording,
                              private XcbConnection::Sink,
                              private QAbstractNativeEventFilter
{
public:
    /// Both must outlive this object.
    X11KeyRecording(XcbConnection& connection, XkbKeymap& keymap);
    ~X11KeyRecording() override;

    [[nodiscard]] Outcome begin() override;
    void end() override;

private:
    void handleEvent(const xcb_generic_event_t& event) override;
    bool nativeEventFilter(const QByteArray& eventType, void* message, qintptr* result) override;

    void handlePress(const xcb_input_key_press_event_t& event);
    void handleRelease(std::uint32_t keycode);
    [[nodiscard]] bool grab();
    void giveBack();

    XcbConnection& m_connection;
    XkbKeymap& m_keymap;
    std::uint8_t m_extension = 0;
    std::uint16_t m_keyboard = 0;
    ModifierMap m_modifierMap;
    std::bitset<256> m_modifierKeys;

    bool m_isRecording = false;
    /// Stays true after end() until every recorded key is released.
    bool m_holdsKeyboard = false;
    std::bitset<256> m_keysDown;
    XcbConnection::Subscription m_subscription;
};

} // namespace tintwick
