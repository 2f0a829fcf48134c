#pragma once

#include "ClipboardProcess.h"

namespace tintwick {

/// The owner in a task for serveWaylandClipboard().
inline constexpr auto* waylandClipboardOwner = "wayland";

/// Has the text on the clipboard until another program copies. Works only where the clipboard can be set at any time.
/// Returns the exit status of the process.
[[nodiscard]] int serveWaylandClipboard(const ClipboardTask& task);

} // namespace tintwick
