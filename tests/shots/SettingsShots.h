#pragma once

class QDir;

namespace tintwick {

/// Both settings tabs in their states, and the settings window.
void shootSettings(const QDir& folder);

} // namespace tintwick
