#pragma once

namespace tintwick {

/// The two colour schemes.
enum class Scheme { Light, Dark };

} // namespace tintwick
