#pragma once

#include "ClipboardProcess.h"

namespace tintwick {

/// Has the text on the clipboard until another program copies. The owner of the task is the number of the window that owns
/// the clipboard now. Returns the exit status of the process.
[[nodiscard]] int serveX11Clipboard(const ClipboardTask& task);

} // namespace tintwick
