#pragma once

#include "SessionBus.h"

namespace tintwick {

/// Calls `then` from the event loop: with true once this program may call portals, with false when the session bus does not
/// reply in time. Ask before the first call of a portal, which must know the program by its application id before any other
/// call. Nothing is called after `context` is destroyed.
void askPortals(QObject& context, std::function<void(bool works)> then,
                std::chrono::milliseconds patience = usualPatienceForBus);

} // namespace tintwick
