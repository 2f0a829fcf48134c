#pragma once

#include <optional>

namespace tintwick {

// Converts between the key codes of KeyCode.h and the kernel's codes (linux/input-event-codes.h, "evdev"). Both name a
// position on the keyboard. Each key of KeyCode.h has exactly one evdev code. With the evdev and libinput drivers the X
// keycode is the evdev code + xKeycodeOffset.

inline constexpr int xKeycodeOffset = 8;

/// None when KeyCode.h does not list the key code.
[[nodiscard]] std::optional<int> evdevForKeyCode(int keyCode);

/// None when KeyCode.h has no key at that position (power keys, mouse buttons).
[[nodiscard]] std::optional<int> keyCodeForEvdev(int evdev);

} // namespace tintwick
