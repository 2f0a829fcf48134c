#pragma once

#include <QByteArray>
#include <QString>

namespace tintwick {

/// Writes all bytes; returns false when that fails.
[[nodiscard]] bool writeToStandardOutput(const QByteArray& bytes);

/// Prints a line to standard error.
void printError(const QString& line);

} // namespace tintwick
