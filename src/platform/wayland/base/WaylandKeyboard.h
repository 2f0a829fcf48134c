#pragma once

#include "KeyPress.h"
#include "WaylandHandle.h"
#include "XkbUnref.h"

#include <QObject>
#include <QTimer>

#include <chrono>
#include <cstdint>
#include <memory>
#include <set>

Q_DECLARE_OPAQUE_POINTER(wl_surface*)

namespace tintwick {

/// The keyboard while a surface of this connection has its focus. The keymap is known without the focus too.
class WaylandKeyboard final : public QObject
{
    Q_OBJECT

public:
    explicit WaylandKeyboard(WlKeyboard keyboard);
    ~WaylandKeyboard() override;

    /// Null when the compositor has sent none. Valid until keymapChanged().
    [[nodiscard]] xkb_keymap* keymap() const { return m_keymap.get(); }
    /// The layout of the keymap that is in use.
    [[nodiscard]] std::uint32_t group() const { return m_group; }
    /// The modifiers that are down, as in KeyPress.
    [[nodiscard]] int modifiers() const;
    [[nodiscard]] bool isAnyKeyDown() const { return !m_keysDown.empty(); }

Q_SIGNALS:
    void entered(wl_surface* surface);
    /// Also reported for each repetition of a key that is held. The serial allows requests that need an action of the
    /// user.
    void keyPressed(const tintwick::KeyPress& press, std::uint32_t serial);
    /// All keys that this connection saw go down are up, or another client has the keyboard now.
    void released();
    /// Another keymap, or another layout of it.
    void keymapChanged();

private:
    struct Handlers;

    void readKeymap(int file, std::uint32_t size);
    void handleKey(std::uint32_t key, bool isDown, std::uint32_t serial);
    [[nodiscard]] KeyPress toKeyPress(std::uint32_t key, bool isRepeat) const;
    void repeat();
    void stop();

    WlKeyboard m_keyboard;
    std::unique_ptr<xkb_context, XkbUnref> m_context;
    std::unique_ptr<xkb_keymap, XkbUnref> m_keymap;
    std::unique_ptr<xkb_state, XkbUnref> m_state;
    std::uint32_t m_group = 0;
    std::set<std::uint32_t> m_keysDown;
    std::chrono::milliseconds m_repeatDelay{600};
    /// 0 when keys do not repeat.
    std::chrono::milliseconds m_repeatInterval{40};
    QTimer m_repeatTimer;
    std::uint32_t m_repeatedKey = 0;
    std::uint32_t m_lastSerial = 0;
};

} // namespace tintwick
