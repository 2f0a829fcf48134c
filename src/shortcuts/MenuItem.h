#pragma once

#include <QString>

#include <cstdint>
#include <vector>

namespace tintwick::KeyboardShortcuts {

/// What the conflict check needs of a menu's item, whichever toolkit draws it.
struct MenuItem
{
    QString title;
    /// The character that stands for the key, see menuKeyEquivalent(); a capital letter includes Shift. Empty when the
    /// item has no key.
    QString keyEquivalent;
    /// Event flags, see Modifiers.h.
    std::uint32_t modifiers = 0;
    std::vector<MenuItem> submenu = {};
};

} // namespace tintwick::KeyboardShortcuts
