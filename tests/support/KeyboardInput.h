#pragma once

#include "support/DesktopConnection.h"

#include <linux/input-event-codes.h>

#include <cstdint>
#include <initializer_list>
#include <set>

namespace tintwick {

/// The keyboard of a private desktop. Keys are positions (KEY_C is the key to the right of X, whatever
/// the layout assigns to it). The destructor releases all keys and locks.
class KeyboardInput final
{
public:
    explicit KeyboardInput(const QByteArray& display = qgetenv("DISPLAY"));
    ~KeyboardInput();
    KeyboardInput(const KeyboardInput&) = delete;
    KeyboardInput& operator=(const KeyboardInput&) = delete;

    void press(int key);
    void release(int key);
    void tap(int key);
    /// Presses all keys in order and releases them in reverse order.
    void chord(std::initializer_list<int> keys);

    /// The modifier bits that are pressed or locked.
    [[nodiscard]] std::uint16_t modifiers();
    /// Selects one of the loaded layouts; the first is 0.
    void chooseGroup(std::uint8_t group);

    [[nodiscard]] DesktopConnection& connection() { return m_connection; }

private:
    void fake(std::uint8_t type, int key);
    void lock(std::uint8_t modifiers, std::uint8_t group);

    DesktopConnection m_connection;
    std::set<int> m_down;
};

} // namespace tintwick
