#pragma once

#include "KeyboardLayout.h"

#include <map>

namespace tintwick::test {

/// A keyboard layout that the test defines. Emit changed() after a change.
class ScriptedKeyboardLayout final : public KeyboardLayout
{
public:
    /// By key code; a key that is not listed types nothing.
    std::map<int, QString> characters;

    [[nodiscard]] std::optional<QString> characterForKey(int keyCode) const override
    {
        const auto found = characters.find(keyCode);
        return found != characters.end() ? std::optional(found->second) : std::nullopt;
    }
};

} // namespace tintwick::test
