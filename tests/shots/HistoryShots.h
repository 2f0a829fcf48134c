#pragma once

class QDir;

namespace tintwick {

/// The history screen in each of its states, with sample colours.
void shootHistory(const QDir& folder);

} // namespace tintwick
