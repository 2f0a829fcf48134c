#pragma once

#include <QByteArray>

#include <optional>

namespace tintwick {

/// What a process that serves the clipboard is to do.
struct ClipboardTask
{
    /// UTF-8.
    QByteArray text;
    /// From whom the clipboard is taken, in a form that the backend knows.
    QByteArray owner;
};

/// Starts this program a second time as a process that has the text on the clipboard until another program copies.
/// Returns when the process has taken the clipboard, when it cannot, or after a second.
void startClipboardProcess(const ClipboardTask& task);

/// Reads the task in that process; none in a process that was not started for it.
[[nodiscard]] std::optional<ClipboardTask> readClipboardTask(int argc, char** argv);

/// Call in that process when it has taken the clipboard: the program that waits for it ends.
void reportClipboardTaken();

} // namespace tintwick
