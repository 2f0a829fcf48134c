#pragma once

#include "KeyboardLayout.h"

#include <map>

namespace tintwick::test {

/// A keyboard that types what the test says.
class ScriptedKeyboardLayout final : public KeyboardLayout
{
public:
    /// By key code; a key that is not here types nothing.
    std::map<int, QString> characters;

    [[nodiscard]] std::optional<QString> characterForKey(int keyCode) const override
    {
        const auto found = characters.find(keyCode);
        return found != characters.end() ? std::optional(found->second) : std::nullopt;
    }

    void setLayoutChangedHandler(LayoutChanged handler) override { m_layoutChanged = std::move(handler); }

    void reportChange() const
    {
        if (m_layoutChanged) {
            m_layoutChanged();
        }
    }

private:
    LayoutChanged m_layoutChanged;
};

} // namespace tintwick::test
