#pragma once

#include "KeyCode.h"

namespace tintwick::KeyboardShortcuts {

/// A key by its position. The named ones are the constants of `keycode`; any other number is a key too, one that this
/// keyboard may not have.
struct Key
{
    int rawValue = 0;

    friend constexpr bool operator==(const Key&, const Key&) = default;
};

} // namespace tintwick::KeyboardShortcuts
