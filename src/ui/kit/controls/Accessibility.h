#pragma once

namespace tintwick {

/// Makes the kit's own kinds of views known to screen readers by their roles. Buttons and text fields are known already.
void describeToScreenReaders();

} // namespace tintwick
