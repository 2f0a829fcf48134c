#pragma once

#include <QFileInfo>
#include <QTemporaryDir>

#include <memory>

namespace tintwick::test {

/// A temporary folder for tests that save often: in memory where the system has /dev/shm, so that
/// they do not wait for a disk.
[[nodiscard]] inline std::unique_ptr<QTemporaryDir> quickTemporaryDir()
{
    const QString memory = QStringLiteral("/dev/shm");
    if (QFileInfo(memory).isWritable()) {
        return std::make_unique<QTemporaryDir>(memory + QStringLiteral("/tintwick-XXXXXX"));
    }
    return std::make_unique<QTemporaryDir>();
}

} // namespace tintwick::test
