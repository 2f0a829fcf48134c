#pragma once

#include <cstdint>
#include <functional>
#include <optional>

namespace tintwick {

enum class KeyDirection : std::uint8_t { Press, Release };

/// Takes key combinations from the whole desktop. Key codes and modifiers are those of KeyCode.h.
class HotKeyRegistrar
{
public:
    /// Names a held combination; never 0.
    using Handle = std::uint32_t;

    static constexpr int statusSuccess = 0;
    /// Another program holds the combination, or the desktop keeps it for itself.
    static constexpr int statusTaken = -9878;
    /// The keyboard has no such key.
    static constexpr int statusNoSuchKey = -50;

    struct Registration
    {
        int status = statusSuccess;
        /// Present exactly when the status is success.
        std::optional<Handle> handle;
    };

    /// Called with the id of the combination; holding a key down is one press and one release.
    using HotKeyHandler = std::function<void(std::uint32_t id, KeyDirection direction)>;

    /// Called with a key of our own windows and menus; true swallows it, however long it is held. Its release comes with
    /// the modifiers of its press.
    using RawKeyHandler = std::function<bool(int keyCode, int modifiers, KeyDirection direction)>;

    virtual ~HotKeyRegistrar() = default;

    [[nodiscard]] virtual Registration registerHotKey(int keyCode, int modifiers, std::uint32_t id) = 0;
    virtual void unregisterHotKey(Handle handle) = 0;
    virtual void setHotKeyHandler(HotKeyHandler handler) = 0;

    /// While a menu of ours is open the desktop gives its keys to the menu instead of to the hot keys: with a handler
    /// set, they come here first. An empty handler stops that.
    virtual void setRawKeyHandler(RawKeyHandler handler) = 0;

    /// Whether someone else holds the combination now; one that we hold ourselves is not taken.
    [[nodiscard]] virtual bool isTaken(int keyCode, int modifiers) const = 0;
};

} // namespace tintwick
