#pragma once

#include "FileIdentity.h"
#include "Payload.h"

namespace tintwick {

/// What reading the data file gave. Only `Missing` means that the user has no data.
struct DataReading
{
    enum class Outcome {
        Missing,
        Read,
        /// The file is not a payload, or is larger than `largestPayload`.
        Undecodable,
        /// The file could not be read now; its content is unknown.
        Failed
    };

    Outcome outcome = Outcome::Missing;
    /// Empty unless the outcome is `Read`.
    Payload payload;
    /// The errno value of a failure; EISDIR when anything but a regular file has the name.
    int error = 0;
    /// Of the file when it was opened.
    FileIdentity identity;
};

} // namespace tintwick
