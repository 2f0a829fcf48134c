#pragma once

#include <string>

namespace tintwick {

/// Prints one line of the table that all benchmarks share. `what` names its aim, where there is one, in brackets; `beside`
/// is the floor or peer that the figure stands beside.
void printRow(const std::string& what, double figure, const std::string& unit,
              const std::string& beside = {});

} // namespace tintwick
