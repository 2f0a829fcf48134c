#pragma once

class QDir;

namespace tintwick {

/// The screen of a contrast in each of its states.
void shootContrast(const QDir& folder);

} // namespace tintwick
