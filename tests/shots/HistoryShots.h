#pragma once

class QDir;

namespace tintwick {

/// The whole history in each of its states, with made-up colours.
void shootHistory(const QDir& folder);

} // namespace tintwick
