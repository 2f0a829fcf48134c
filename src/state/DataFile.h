#pragma once

#include "Payload.h"

#include <QUrl>

#include <optional>

namespace tintwick {

/// The JSON file with the user's data.
class DataFile final
{
public:
    /// Makes a write beyond the process's limit on file sizes fail instead of ending the process.
    DataFile();

    /// The data file: "Tintwick/data.json" in the user's data folder ($XDG_DATA_HOME). Creates the folder, private to the
    /// user, if it is missing.
    [[nodiscard]] QUrl fileURL() const;

    /// The content of the data file; none when it is missing, unreadable, larger than `largestPayload` or not accepted by
    /// `decodePayload`.
    [[nodiscard]] std::optional<Payload> load() const;

    /// Replaces the data file; the content is on the disk when this returns. A save that fails leaves the old file and is
    /// not reported.
    void save(const QList<CapturedColor>& history, const QList<ColorCollection>& collections,
              ColorFormat defaultFormat) const;
};

} // namespace tintwick
