#pragma once

#include "Shortcut.h"

#include <QHashFunctions>
#include <QString>

#include <optional>

namespace tintwick::KeyboardShortcuts {

/// A slot for a shortcut that the user may change. Two names are the same when their raw values are.
struct Name
{
    /// Part of the key under which the shortcut is stored.
    QString rawValue;
    /// What the name starts with on a fresh install.
    std::optional<Shortcut> defaultShortcut;

    friend bool operator==(const Name& a, const Name& b) { return a.rawValue == b.rawValue; }
    friend std::size_t qHash(const Name& name, std::size_t seed = 0) { return qHash(name.rawValue, seed); }
};

} // namespace tintwick::KeyboardShortcuts
