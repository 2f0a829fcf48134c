#pragma once

#include "Shortcut.h"

#include <QString>

#include <cstdint>

namespace tintwick {
struct KeyPress;
}

namespace tintwick::KeyboardShortcuts {

struct RecorderServices;

/// What a key means that is pressed while a recorder records.
struct RecordedKey
{
    enum class Meaning : std::uint8_t {
        /// Nothing at all: a key that is held repeats itself.
        Ignore,
        /// The key moves the focus to the next control, or with Shift to the one before.
        PassOn,
        /// Recording ends and nothing changes.
        End,
        /// The shortcut is removed and recording ends.
        Clear,
        /// No shortcut; the alert sounds and recording goes on.
        Refuse,
        /// The shortcut is one of our own menu's.
        UsedByMenuItem,
        /// The shortcut is the desktop's or another program's; the user may take it all the same.
        UsedBySystem,
        /// The shortcut is free.
        Accept,
    };

    Meaning meaning = Meaning::Ignore;
    /// The combination pressed, from UsedByMenuItem on.
    Shortcut shortcut = {};
    /// Of UsedByMenuItem.
    QString menuItemTitle = {};

    friend bool operator==(const RecordedKey&, const RecordedKey&) = default;
};

/// The first that holds, in the order of Meaning.
[[nodiscard]] RecordedKey recordedKey(const KeyPress& press, const RecorderServices& services);

} // namespace tintwick::KeyboardShortcuts
