#pragma once

#include <QString>

namespace tintwick {

/// Whether the installed fonts have every character of a shortcut's description. Needs a QGuiApplication.
[[nodiscard]] bool fontsHave(const QString& description);

} // namespace tintwick
