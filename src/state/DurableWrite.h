#pragma once

#include "FileIdentity.h"

#include <QByteArray>
#include <QString>

#include <optional>

namespace tintwick {

/// Replaces the content of the file `target` by `json`. At every moment, also after a power failure, the file has either
/// the complete old content or the complete new one. Returns 0 when the content is on the disk, else the errno value of
/// the failure. `temporaryName` is the name of a file in the same folder that may be overwritten. A new file is private to
/// the user. A link stays a link, and its target is replaced or created. The old content stays when the disk has no room
/// for the new one. Anything but a regular file is left alone (EISDIR).
///
/// When no second file can be created, because the folder is read-only or the disk is full, `target` is overwritten in
/// place after the room for it is reserved. This is one system call; a power failure during it can damage the file.
///
/// When `known` is set and is not the file `target` any more, because another program has written it, nothing is written
/// (ESTALE). On success `known` is the new file.
[[nodiscard]] int writeDurably(const QString& target, const QString& temporaryName, const QByteArray& json,
                               std::optional<FileIdentity>& known);

} // namespace tintwick
