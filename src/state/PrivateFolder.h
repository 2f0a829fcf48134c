#pragma once

class QString;

namespace tintwick {

/// Creates a folder and its missing parents, readable by the user only; an existing folder keeps its mode. Returns 0, or
/// the errno value of the failure; ENOTDIR when something else has the name.
[[nodiscard]] int makePrivateFolder(const QString& path);

} // namespace tintwick
