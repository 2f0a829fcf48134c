#pragma once

#include <functional>

class QObject;

namespace tintwick {

/// Calls `then` from the event loop with the answer to whether the session bus works: false when it does not reply within
/// half a second. Ask before a call that blocks, such as the constructor of a proxy, which looks up the owner of a name.
/// Nothing is called after `context` is destroyed.
void askSessionBus(QObject& context, std::function<void(bool works)> then);

} // namespace tintwick
