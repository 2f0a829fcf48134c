#pragma once

class QDir;

namespace tintwick {

/// The search with its results, colours to add, and similar colours.
void shootSearch(const QDir& folder);

} // namespace tintwick
