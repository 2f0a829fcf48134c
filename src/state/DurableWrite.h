#pragma once

#include <QByteArray>
#include <QString>

namespace tintwick {

/// Puts `json` into the file `target` so that at every moment, also when the power fails, the file holds its
/// old content or the new one, whole; when the function returns the content has reached the disk. `temporary`
/// is a file name in the same folder that may be overwritten. New files are private to the user. A target
/// that is a link stays one, and the file it leads to is replaced. The old content stays when there is no
/// room for the new one.
///
/// Where no second file can be made, because the folder takes none or the disk has no room for it, `target`
/// is written in place once its room is reserved. That is one call to the system; power that fails during
/// that call can tear it.
void writeDurably(const QString& target, const QString& temporary, const QByteArray& json);

} // namespace tintwick
