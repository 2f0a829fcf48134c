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
    /// Dead keys, by key code.
    std::map<int, QString> accents;

    [[nodiscard]] std::optional<QString> characterForKey(int keyCode) const override
    {
        return find(characters, keyCode);
    }
    [[nodiscard]] std::optional<QString> accentForKey(int keyCode) const override
    {
        return find(accents, keyCode);
    }

private:
    [[nodiscard]] static std::optional<QString> find(const std::map<int, QString>& texts, int keyCode)
    {
        const auto found = texts.find(keyCode);
        return found != texts.end() ? std::optional(found->second) : std::nullopt;
    }
};

} // namespace tintwick::test
