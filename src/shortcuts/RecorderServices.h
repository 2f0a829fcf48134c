#pragma once

#include "MenuItem.h"

#include <functional>
#include <vector>

namespace tintwick {
class KeyboardLayout;
class KeyRecording;
} // namespace tintwick

namespace tintwick::KeyboardShortcuts {

class Registry;

/// What every recorder of the program works with; all of it must outlive the recorders.
struct RecorderServices
{
    Registry& registry;
    KeyRecording& keys;
    const KeyboardLayout& layout;
    /// The program's menu as it is now; its keys cannot be recorded.
    std::function<std::vector<MenuItem>()> mainMenu;
};

} // namespace tintwick::KeyboardShortcuts
