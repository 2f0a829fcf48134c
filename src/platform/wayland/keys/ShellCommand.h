#pragma once

#include <QString>
#include <QStringList>

namespace tintwick {

/// A program and its arguments as a command line of a shell. Special characters have a backslash and no quotes, because
/// sway removes quotes.
[[nodiscard]] QString shellCommand(const QStringList& words);
/// The text as one word of a shell, in single quotes.
[[nodiscard]] QString quotedWord(const QString& text);

} // namespace tintwick
