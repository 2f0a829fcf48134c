#pragma once

#include <optional>

namespace tintwick {

/// A backend may start this program again for work that outlives the program. Call at the start of main(), before the
/// command line is parsed: carries out such work and returns the exit status; none in every other process.
[[nodiscard]] std::optional<int> runHelperProcess(int argc, char** argv);

} // namespace tintwick
