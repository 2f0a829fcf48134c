#pragma once

#include <QFileInfo>
#include <QTemporaryDir>

#include <memory>

namespace tintwick::testing {

/// A temporary folder for tests that save very often: in memory where the system has such a place, so that
/// they do not wait for a disk.
[[nodiscard]] inline std::unique_ptr<QTemporaryDir> quickTemporaryDir()
{
    const QString memory = QStringLiteral("/dev/shm");
    if (QFileInfo(memory).isWritable()) {
        return std::make_unique<QTemporaryDir>(memory + QStringLiteral("/tintwick-XXXXXX"));
    }
    return std::make_unique<QTemporaryDir>();
}

} // namespace tintwick::testing
