#pragma once

#include "Key.h"

#include <QString>

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>

class QEvent;

namespace tintwick::KeyboardShortcuts {

/// One key combination.
struct Shortcut
{
    /// The key's position, see KeyCode.h.
    int carbonKeyCode = 0;
    /// See `modifier` in KeyCode.h.
    int carbonModifiers = 0;

    /// Modifiers as event flags; what is not one of the five modifiers is dropped.
    [[nodiscard]] static Shortcut fromKey(Key key, std::uint32_t eventFlags);
    /// What is not one of the five modifiers is dropped.
    [[nodiscard]] static Shortcut fromCarbon(int keyCode, int modifiers);
    /// The combination that a key press or release of one of our windows stands for, whatever the layout prints on the
    /// key. None for every other event and for a key that has no name.
    [[nodiscard]] static std::optional<Shortcut> fromEvent(const QEvent& event);
    /// Both numbers as stored; none when the text is no JSON object with both as integers.
    [[nodiscard]] static std::optional<Shortcut> fromJson(const QString& text);

    /// The modifiers as event flags.
    [[nodiscard]] std::uint32_t modifiers() const;
    [[nodiscard]] QString toJson() const;

    friend constexpr bool operator==(const Shortcut&, const Shortcut&) = default;
};

} // namespace tintwick::KeyboardShortcuts

template <>
struct std::hash<tintwick::KeyboardShortcuts::Shortcut>
{
    std::size_t operator()(const tintwick::KeyboardShortcuts::Shortcut& shortcut) const noexcept
    {
        const auto keyCode = static_cast<std::uint32_t>(shortcut.carbonKeyCode);
        const auto modifiers = static_cast<std::uint32_t>(shortcut.carbonModifiers);
        return std::hash<std::uint64_t>()(std::uint64_t{keyCode} << 32 | modifiers);
    }
};
