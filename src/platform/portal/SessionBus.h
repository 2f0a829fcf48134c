#pragma once

#include <chrono>
#include <functional>

class QObject;

namespace tintwick {

inline constexpr std::chrono::milliseconds usualPatienceForBus{500};

/// Calls `then` from the event loop with the answer to whether the session bus works: false when it does not reply in time.
/// Ask where the user would otherwise wait until a call times out.
/// Nothing is called after `context` is destroyed.
void askSessionBus(QObject& context, std::function<void(bool works)> then,
                   std::chrono::milliseconds patience = usualPatienceForBus);

} // namespace tintwick
