#pragma once

namespace tintwick {

struct Invocation;
struct PickAnswer;

/// Prints the colours of a pick to standard output, and the reason of a failure to standard error. Returns the exit status.
[[nodiscard]] int report(const PickAnswer& answer, const Invocation& invocation);

} // namespace tintwick
