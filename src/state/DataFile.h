#pragma once

#include "Payload.h"

#include <QUrl>

#include <optional>

namespace tintwick {

/// Keeps the user's data in one JSON file.
class DataFile final
{
public:
    /// From here on a write beyond the process's limit on file sizes fails instead of ending the process.
    DataFile();

    /// The data file: "Tintwick/data.json" under the user's data folder ($XDG_DATA_HOME). Asking makes the
    /// folder, private to the user, when it is not there.
    [[nodiscard]] QUrl fileURL() const;

    /// What the data file holds, or nothing when it is missing, unreadable, larger than `largestPayload` or
    /// refused by `decodePayload`.
    [[nodiscard]] std::optional<Payload> load() const;

    /// Replaces the data file, on the disk before this returns. A save that fails leaves the old file and
    /// says nothing.
    void save(const QList<CapturedColor>& history, const QList<ColorCollection>& collections,
              ColorFormat defaultFormat) const;
};

} // namespace tintwick
