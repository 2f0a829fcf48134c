#pragma once

namespace tintwick {

/// Registers the accessibility interface of shortcut recorders: a hot key field whose value is the shortcut.
void describeRecordersToScreenReaders();

} // namespace tintwick
