#pragma once

class QDir;

namespace tintwick {

/// The shortcut recorder in each of its states, and its alerts.
void shootRecorder(const QDir& folder);

} // namespace tintwick
