#pragma once

#include "support/wayland/WaylandClient.h"

#include <QPointF>
#include <QRect>

#include <cstdint>

namespace tintwick {

/// A pointer and a keyboard of a wlroots compositor. Both exist as long as the object, so that its seat has them.
class VirtualInput final
{
public:
    /// The client must outlive the object. Throws std::runtime_error when the compositor lacks a protocol.
    explicit VirtualInput(WaylandClient& client);
    ~VirtualInput();

    /// `position` is in logical units, `desktop` is the rectangle around all outputs.
    void movePointer(QPointF position, const QRect& desktop);
    /// `button` is a code of the kernel (BTN_LEFT, ...).
    void setButton(std::uint32_t button, bool isDown);
    /// Turns the wheel by notches; positive is up.
    void scroll(int notches);
    /// `key` is a code of the kernel (KEY_A, ...).
    void setKey(std::uint32_t key, bool isDown);

private:
    void sendKeymap();

    WaylandClient& m_client;
    ClientHandle<wl_seat> m_seat;
    ClientHandle<zwlr_virtual_pointer_manager_v1> m_pointerManager;
    ClientHandle<zwp_virtual_keyboard_manager_v1> m_keyboardManager;
    ClientHandle<zwlr_virtual_pointer_v1> m_pointer;
    ClientHandle<zwp_virtual_keyboard_v1> m_keyboard;
    struct Keys;
    std::unique_ptr<Keys> m_keys;
};

} // namespace tintwick
