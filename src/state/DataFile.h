#pragma once

#include "DataReading.h"
#include "FileIdentity.h"

#include <QString>
#include <QUrl>

#include <optional>

namespace tintwick {

/// The JSON file with the user's data. All operations read or write files.
class DataFile final
{
public:
    /// Makes a write beyond the process's limit on file sizes fail instead of ending the process.
    DataFile();

    /// The data file: "Tintwick/data.json" in the user's data folder ($XDG_DATA_HOME). Creates the folder, private to the
    /// user, if it is missing.
    [[nodiscard]] QUrl fileURL() const;

    /// Never waits for a pipe or a device in the place of the file.
    [[nodiscard]] DataReading read() const;

    /// Replaces the data file; the content is on the disk when this returns. Returns 0, or the errno value of the failure,
    /// which leaves the old file; EFBIG when the payload cannot be encoded.
    [[nodiscard]] int save(const Payload& payload) const;
    /// The same, but when `known` is set, replaces no other file than that one and returns ESTALE. On success `known` is the
    /// new file.
    [[nodiscard]] int save(const Payload& payload, std::optional<FileIdentity>& known) const;

    /// Gives the data file a name with the date, "data.unreadable-2025-03-14T09-26-53.json" in the same folder, and
    /// removes all but the newest three of such files. Returns 0, or the errno value of the failure.
    [[nodiscard]] int moveAside() const;
};

} // namespace tintwick
