#pragma once

namespace tintwick {

/// Makes shortcut recorders known to screen readers: as a field for a hot key, with the shortcut as its value.
void describeRecordersToScreenReaders();

} // namespace tintwick
