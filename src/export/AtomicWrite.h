#pragma once

class QByteArray;
class QString;

namespace tintwick {

/// Puts `data` into the file at `path` whole, or leaves what was there as it was; returns which. A file that is replaced
/// hands its permissions on, a new one gets those that new files of the user have. A link stays one, and the file it leads
/// to is replaced. Anything but a file of its own, such as a device, is refused.
bool writeAtomically(const QString& path, const QByteArray& data);

} // namespace tintwick
