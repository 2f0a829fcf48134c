#pragma once

#include <QString>

#include <functional>
#include <optional>

namespace tintwick {

/// What the keys print, in the user's current ASCII-capable layout.
class KeyboardLayout
{
public:
    using LayoutChanged = std::function<void()>;

    virtual ~KeyboardLayout() = default;

    /// The text that the key types without modifiers, or nothing when it types none (dead keys, function keys) or does
    /// not exist. Key codes are those of KeyCode.h.
    [[nodiscard]] virtual std::optional<QString> characterForKey(int keyCode) const = 0;

    /// Called after the user chose another layout or plugged in another keyboard.
    virtual void setLayoutChangedHandler(LayoutChanged handler) = 0;
};

} // namespace tintwick
