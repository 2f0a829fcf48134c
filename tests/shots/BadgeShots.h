#pragma once

class QDir;

namespace tintwick {

/// Draws what the program says beside the pointer.
void shootBadges(const QDir& folder);

} // namespace tintwick
