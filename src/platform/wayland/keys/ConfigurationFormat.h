#pragma once

#include "ConfigurationLine.h"

#include <QProcessEnvironment>
#include <QStringList>

#include <cstdint>

namespace tintwick {

/// How the user of a desktop binds keys to commands.
enum class ConfigurationFormat : std::uint8_t {
    Sway,
    Hyprland,
    Niri,
    River,
    Labwc,
    /// In a dialog of the settings.
    Gnome,
    /// In a way that this program does not know.
    Unknown,
};

/// The format of the desktop that a session's environment names.
[[nodiscard]] ConfigurationFormat configurationFormat(const QProcessEnvironment& session);

/// Whether the desktop takes keys from a file alone. There a portal for shortcuts has no keys until the file names them.
[[nodiscard]] constexpr bool isFile(ConfigurationFormat format)
{
    return format != ConfigurationFormat::Gnome && format != ConfigurationFormat::Unknown;
}

/// The keys of a line: the name of a key's symbol without modifiers, and masks of `modifier` in KeyCode.h.
struct LineKeys
{
    QString symbolName;
    int modifiers = 0;
};

/// The line that binds the command, a program and its arguments, to the keys.
[[nodiscard]] ConfigurationLine configurationLine(ConfigurationFormat format, const QStringList& command,
                                                  const LineKeys& keys);

/// The keys in the shortcut notation of freedesktop.org: "ALT+SHIFT+c".
[[nodiscard]] QString triggerOf(const LineKeys& keys);

} // namespace tintwick
