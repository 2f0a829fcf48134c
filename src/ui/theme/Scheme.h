#pragma once

namespace tintwick {

/// The two appearances that everything on screen can take.
enum class Scheme { Light, Dark };

} // namespace tintwick
