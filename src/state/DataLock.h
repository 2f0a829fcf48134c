#pragma once

#include "FileDescriptor.h"

#include <QString>

namespace tintwick {

/// Lets only one resident program of a user write the data. A lock on the data folder itself, so that no file is left
/// behind and the kernel releases it with the process.
class DataLock final
{
public:
    /// `folder` is the path of an existing folder.
    explicit DataLock(const QString& folder);

    /// False when another program holds the lock. True also when the file system has no locks.
    [[nodiscard]] bool acquire();

private:
    FileDescriptor m_folder;
};

} // namespace tintwick
