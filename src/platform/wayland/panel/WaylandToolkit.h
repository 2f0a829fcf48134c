#pragma once

class QString;

namespace tintwick {

/// Makes the toolkit show its windows on the Wayland display, unless the user has chosen its platform, and end the
/// process in an orderly way when the connection breaks. Call before the application object exists. Returns false and sets
/// `whyNot` to one sentence for the user when the toolkit's plugin is not installed: the toolkit itself would end the
/// process.
[[nodiscard]] bool useWaylandToolkit(QString& whyNot);

} // namespace tintwick
