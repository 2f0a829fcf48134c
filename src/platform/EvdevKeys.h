#pragma once

#include <optional>

namespace tintwick {

// The key codes of KeyCode.h and those of the Linux kernel (linux/input-event-codes.h, "evdev") name the same
// thing, a position on the keyboard. Each named key has exactly one evdev code and the other way round. On an
// X server with the evdev or libinput driver the X keycode is the evdev code + 8.

inline constexpr int xKeycodeOffset = 8;

/// None when the key code is not one of the named keys.
[[nodiscard]] std::optional<int> evdevForKeyCode(int keyCode);

/// None when no named key sits at that position (media keys, mouse buttons).
[[nodiscard]] std::optional<int> keyCodeForEvdev(int evdev);

} // namespace tintwick
