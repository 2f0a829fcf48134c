#pragma once

#include <chrono>
#include <functional>

class QObject;

namespace tintwick {

inline constexpr std::chrono::milliseconds usualPatienceForBus{500};

/// Calls `then` from the event loop with the answer to whether the session bus works: false when it does not reply in time.
/// Ask before a call that blocks, such as the constructor of a proxy, which looks up the owner of a name.
/// Nothing is called after `context` is destroyed.
void askSessionBus(QObject& context, std::function<void(bool works)> then,
                   std::chrono::milliseconds patience = usualPatienceForBus);

} // namespace tintwick
