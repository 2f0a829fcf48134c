#pragma once

#include <cstdint>

namespace tintwick {

/// What a pick of a colour that the history holds does.
enum class RepeatedPick : std::uint8_t {
    /// Adds it again.
    Add,
    /// Moves what the history holds to its head.
    Move
};

} // namespace tintwick
