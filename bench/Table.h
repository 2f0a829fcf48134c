#pragma once

#include <string>

namespace tintwick {

/// Prints one line of the table of all benchmarks. `what` includes the target, if any, in brackets; `beside`
/// is the lower bound or the other program to compare with.
void printRow(const std::string& what, double figure, const std::string& unit,
              const std::string& beside = {});

} // namespace tintwick
