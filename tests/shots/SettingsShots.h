#pragma once

class QDir;

namespace tintwick {

/// Both tabs of the settings in their states, and the window that points to them.
void shootSettings(const QDir& folder);

} // namespace tintwick
