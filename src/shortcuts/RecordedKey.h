#pragma once

#include "Shortcut.h"
#include "ShortcutAction.h"

#include <QString>

#include <cstdint>
#include <optional>

namespace tintwick {

struct KeyPress;
struct RecorderServices;

/// What a key press means while a recorder records.
struct RecordedKey
{
    enum class Meaning : std::uint8_t {
        /// Nothing: the key repeats because it is held.
        Ignore,
        /// The focus moves to the next control, with Shift to the previous one.
        PassOn,
        /// Recording ends without a change.
        End,
        /// The shortcut is removed and recording ends.
        Clear,
        /// The key cannot be a shortcut. The alert sounds and recording continues.
        Refuse,
        /// An item of the program's menu has the shortcut.
        UsedByMenuItem,
        /// The desktop or another program holds the shortcut. The user may store it anyway.
        UsedBySystem,
        /// Another action of the program has the shortcut. The user may store it anyway.
        UsedByOtherAction,
        /// Most programs use the shortcut, and would no longer get it. The user may store it anyway.
        UsedByMostPrograms,
        /// The shortcut is free.
        Accept,
    };

    /// Why a key cannot be a shortcut.
    enum class Refusal : std::uint8_t {
        /// No other program would get the key any more: it needs Control, Alt or Super.
        NeedsModifier,
        /// It is held with a modifier that no shortcut can have.
        OtherModifier,
        UnknownKey,
    };

    Meaning meaning = Meaning::Ignore;
    /// Set for UsedByMenuItem and the meanings after it.
    Shortcut shortcut = {};
    /// The title of the menu item or of the action, or what most programs do, for example "copy".
    QString use = {};
    /// Set for Refuse.
    std::optional<Refusal> refusal = {};

    friend bool operator==(const RecordedKey&, const RecordedKey&) = default;
};

/// The first meaning for this action that applies, in the order of Meaning.
[[nodiscard]] RecordedKey recordedKey(const KeyPress& press, ShortcutAction action,
                                      const RecorderServices& services);

} // namespace tintwick
