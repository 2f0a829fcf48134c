#pragma once

#include <QByteArray>

#include <xcb/xcb.h>

#include <optional>

namespace tintwick {

/// Starts this program a second time as a process that has the text (UTF-8) on the clipboard until another program
/// copies. `owner` is the window of ours that owns the clipboard now. Returns when the process has taken the clipboard, when
/// it cannot, or after a second.
void startClipboardProcess(const QByteArray& text, xcb_window_t owner);

/// The work of that process. Returns its exit status at its end; none at once in a process that was not started for it.
[[nodiscard]] std::optional<int> runClipboardProcess(int argc, char** argv);

} // namespace tintwick
