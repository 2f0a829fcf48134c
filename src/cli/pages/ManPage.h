#pragma once

#include <QByteArray>
#include <QString>

namespace tintwick {

/// The man page of the program in roff, made from the table of commands.
[[nodiscard]] QByteArray manPage(const QString& version);

} // namespace tintwick
