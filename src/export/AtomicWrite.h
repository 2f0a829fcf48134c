#pragma once

class QByteArray;
class QString;

namespace tintwick {

/// Writes `data` to the file at `path` completely or leaves the old content. False when it fails; then `whyNot`, if any,
/// is the reason in the user's language. A replaced file keeps its permissions, a new one gets the usual ones. A link
/// stays a link, and its target is replaced. Fails for anything but a regular file, such as a device.
bool writeAtomically(const QString& path, const QByteArray& data, QString* whyNot = nullptr);

} // namespace tintwick
