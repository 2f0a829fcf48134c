#pragma once

#include "support/DesktopConnection.h"

#include <linux/input-event-codes.h>

#include <cstdint>
#include <initializer_list>
#include <set>

namespace tintwick {

/// A user's hand on the keyboard of a desktop. Keys are positions (KEY_C is the key right of X, whatever
/// the layout prints on it). At its end no key is down and no lock is on.
class HandOnKeyboard final
{
public:
    explicit HandOnKeyboard(const QByteArray& display = qgetenv("DISPLAY"));
    ~HandOnKeyboard();
    HandOnKeyboard(const HandOnKeyboard&) = delete;
    HandOnKeyboard& operator=(const HandOnKeyboard&) = delete;

    void press(int key);
    void release(int key);
    void tap(int key);
    /// Presses all in order and releases them in the opposite order.
    void chord(std::initializer_list<int> keys);

    /// The modifier bits that are down or locked.
    [[nodiscard]] std::uint16_t modifiers();
    /// Chooses one of the layouts that are loaded, the first one is 0.
    void chooseGroup(std::uint8_t group);

    [[nodiscard]] DesktopConnection& connection() { return m_connection; }

private:
    void fake(std::uint8_t type, int key);
    void lock(std::uint8_t modifiers, std::uint8_t group);

    DesktopConnection m_connection;
    std::set<int> m_down;
};

} // namespace tintwick
