#pragma once

namespace tintwick {

struct Invocation;

/// Runs a command that needs neither a display nor the running program: convert, history, palettes, palette or export.
/// Writes to standard output and standard error; returns the exit status.
[[nodiscard]] int runOffline(const Invocation& invocation);

} // namespace tintwick
