#include "FocusRing.h"

namespace tintwick {

bool focusRingIsShown(Qt::FocusReason reason, bool shown)
{
    switch (reason) {
    case Qt::TabFocusReason:
    case Qt::BacktabFocusReason:
    case Qt::ShortcutFocusReason:
        return true;
    case Qt::ActiveWindowFocusReason:
    case Qt::PopupFocusReason:
        // Back from elsewhere: as it was.
        return shown;
    default:
        return false;
    }
}

} // namespace tintwick
