#pragma once

#include <QByteArray>
#include <QString>

namespace tintwick {

// Whether the desktop starts this program at login: an entry in the user's autostart folder.

/// "org.tintwick.Tintwick.desktop" in $XDG_CONFIG_HOME/autostart.
[[nodiscard]] QString autostartFile();
/// Whether the entry is there and not switched off, as some desktops do by a line in it.
[[nodiscard]] bool startsAtLogin();
/// Writes or removes the entry, which starts the running binary. Returns 0, or the errno value of the failure.
[[nodiscard]] int setStartsAtLogin(bool starts);

/// The content of the entry for this binary.
[[nodiscard]] QByteArray autostartEntry(const QString& program);

} // namespace tintwick
