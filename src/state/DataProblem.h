#pragma once

#include <QString>

namespace tintwick {

/// Why the user's data is not on the disk.
struct DataProblem
{
    enum class Kind {
        None,
        /// The stored data could not be read, so that nothing may replace it.
        CannotRead,
        CannotWrite
    };

    Kind kind = Kind::None;
    /// An errno value.
    int error = 0;

    [[nodiscard]] bool exists() const { return kind != Kind::None; }
    /// One sentence in the user's language; empty without a problem.
    [[nodiscard]] QString sentence() const;

    friend bool operator==(const DataProblem&, const DataProblem&) = default;
};

} // namespace tintwick
