#pragma once

#include <Qt>

namespace tintwick {

/// Whether the ring of keyboard focus is to be seen on a control that gets the focus for this reason. `shown` is whether
/// it was when the control had the focus last.
[[nodiscard]] bool focusRingIsShown(Qt::FocusReason reason, bool shown);

} // namespace tintwick
