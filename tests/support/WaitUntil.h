#pragma once

#include <chrono>
#include <functional>

namespace tintwick {

/// Looks at the condition again and again until it holds; false when it still does not at the deadline. The
/// only place where a test of the desktop passes time.
[[nodiscard]] bool waitUntil(const std::function<bool()>& condition,
                             std::chrono::milliseconds deadline = std::chrono::seconds(5));

} // namespace tintwick
