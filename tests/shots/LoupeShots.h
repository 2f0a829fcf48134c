#pragma once

class QDir;

namespace tintwick {

/// The loupe over light and dark pixels, in both shapes and with high contrast.
void shootLoupe(const QDir& folder);

} // namespace tintwick
