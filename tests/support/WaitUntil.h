#pragma once

#include <chrono>
#include <functional>

namespace tintwick {

/// Checks the condition repeatedly until it holds; false when it does not hold at the deadline. The
/// only place where a desktop test waits.
[[nodiscard]] bool waitUntil(const std::function<bool()>& condition,
                             std::chrono::milliseconds deadline = std::chrono::seconds(20));

} // namespace tintwick
