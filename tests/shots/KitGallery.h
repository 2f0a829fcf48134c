#pragma once

class QDir;

namespace tintwick {

/// Every block of the kit on one page, every symbol on another page, a menu and an overlay.
void shootKitGallery(const QDir& folder);

} // namespace tintwick
