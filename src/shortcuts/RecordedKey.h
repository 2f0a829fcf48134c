#pragma once

#include "Shortcut.h"

#include <QString>

#include <cstdint>

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
        /// The shortcut is free.
        Accept,
    };

    Meaning meaning = Meaning::Ignore;
    /// Set for UsedByMenuItem, UsedBySystem and Accept.
    Shortcut shortcut = {};
    /// Set for UsedByMenuItem.
    QString menuItemTitle = {};

    friend bool operator==(const RecordedKey&, const RecordedKey&) = default;
};

/// The first meaning that applies, in the order of Meaning.
[[nodiscard]] RecordedKey recordedKey(const KeyPress& press, const RecorderServices& services);

} // namespace tintwick
