#pragma once

#include <algorithm>
#include <chrono>
#include <stdexcept>
#include <vector>

namespace tintwick {

using Clock = std::chrono::steady_clock;
using Milliseconds = std::chrono::duration<double, std::milli>;

[[nodiscard]] inline double millisecondsSince(Clock::time_point start)
{
    return Milliseconds(Clock::now() - start).count();
}

/// A measurement cannot continue without its precondition.
inline void require(bool condition, const char* whatWentWrong)
{
    if (!condition) {
        throw std::runtime_error(whatWentWrong);
    }
}

[[nodiscard]] inline double median(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    return values.at(values.size() / 2);
}

} // namespace tintwick
