#pragma once

#include "HotKeyRegistrar.h"

#include <QString>
#include <QStringList>

#include <map>
#include <utility>

namespace tintwick::test {

/// Hot keys of a desktop that exists only in the test: refuses what it is told to, records what was asked of it in
/// order, and presses keys.
class ScriptedHotKeyRegistrar final : public HotKeyRegistrar
{
public:
    /// Key code and modifiers.
    using Combination = std::pair<int, int>;

    /// "register <key code>+<modifiers> as <id>" and "unregister <id>", one line each.
    QStringList journal;
    /// Status of every registration of a combination; what is not named succeeds.
    std::map<Combination, int> refused;

    [[nodiscard]] Registration registerHotKey(int keyCode, int modifiers, std::uint32_t id) override
    {
        journal << QStringLiteral("register %1+%2 as %3").arg(keyCode).arg(modifiers).arg(id);
        if (const auto refusal = refused.find({keyCode, modifiers}); refusal != refused.end()) {
            return {refusal->second, std::nullopt};
        }
        m_held.emplace(++m_lastHandle, Held{{keyCode, modifiers}, id});
        return {statusSuccess, m_lastHandle};
    }

    void unregisterHotKey(Handle handle) override
    {
        const auto held = m_held.find(handle);
        if (held == m_held.end()) {
            journal << QStringLiteral("unregister of a handle that is not held");
            return;
        }
        journal << QStringLiteral("unregister %1").arg(held->second.id);
        m_held.erase(held);
    }

    void setHotKeyHandler(HotKeyHandler handler) override { m_hotKeyHandler = std::move(handler); }
    void setRawKeyHandler(RawKeyHandler handler) override { m_rawKeyHandler = std::move(handler); }

    [[nodiscard]] bool isTaken(int keyCode, int modifiers) const override
    {
        return refused.contains({keyCode, modifiers});
    }

    /// The key goes where the desktop would send it while no menu is open.
    void send(int keyCode, int modifiers, KeyDirection direction)
    {
        const auto held = m_held;
        for (const auto& [handle, hotKey] : held) {
            if (hotKey.combination == Combination{keyCode, modifiers}) {
                sendId(hotKey.id, direction);
            }
        }
    }
    void pressAndRelease(int keyCode, int modifiers)
    {
        send(keyCode, modifiers, KeyDirection::Press);
        send(keyCode, modifiers, KeyDirection::Release);
    }
    void sendId(std::uint32_t id, KeyDirection direction)
    {
        if (const auto handler = m_hotKeyHandler) {
            handler(id, direction);
        }
    }

    /// A key of an open menu; true when it does not reach the menu.
    [[nodiscard]] bool sendRaw(int keyCode, int modifiers, KeyDirection direction)
    {
        const auto handler = m_rawKeyHandler;
        return handler && handler(keyCode, modifiers, direction);
    }
    [[nodiscard]] bool watchesRawKeys() const { return static_cast<bool>(m_rawKeyHandler); }
    [[nodiscard]] bool hasHotKeyHandler() const { return static_cast<bool>(m_hotKeyHandler); }

private:
    struct Held
    {
        Combination combination;
        std::uint32_t id = 0;
    };

    std::map<Handle, Held> m_held;
    Handle m_lastHandle = 0;
    HotKeyHandler m_hotKeyHandler;
    RawKeyHandler m_rawKeyHandler;
};

} // namespace tintwick::test
