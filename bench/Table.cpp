#include "Table.h"

#include <cstdio>

namespace tintwick {

void printRow(const std::string& what, double figure, const std::string& unit, const std::string& beside)
{
    std::printf("%-62s %9.3f %-3s  %s\n", what.c_str(), figure, unit.c_str(), beside.c_str());
    std::fflush(stdout);
}

} // namespace tintwick
