#pragma once

#include <QString>
#include <QStringList>

namespace tintwick {

/// The text as one word of a shell: as it is where the shell takes it literally, otherwise in single quotes.
[[nodiscard]] QString shellWord(const QString& text);
/// A program and its arguments as a command line of a shell.
[[nodiscard]] QString shellCommand(const QStringList& words);

} // namespace tintwick
