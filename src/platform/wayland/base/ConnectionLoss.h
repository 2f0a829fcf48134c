#pragma once

namespace tintwick {

/// Prints that the compositor is gone; only the first call in a process does. Each connection of the process notices it.
void reportConnectionLoss();

} // namespace tintwick
