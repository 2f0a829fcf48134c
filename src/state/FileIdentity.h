#pragma once

#include <cstdint>

class QByteArray;

namespace tintwick {

/// Which file has a name, and when it was last written. Differs after every write by any program.
struct FileIdentity
{
    bool exists = false;
    std::uint64_t device = 0;
    std::uint64_t number = 0;
    std::int64_t size = 0;
    /// When the content was last written.
    std::int64_t seconds = 0;
    std::int64_t nanoseconds = 0;

    /// Of the file to which the path leads. One system call.
    [[nodiscard]] static FileIdentity ofPath(const QByteArray& path);
    [[nodiscard]] static FileIdentity ofDescriptor(int descriptor);

    friend bool operator==(const FileIdentity&, const FileIdentity&) = default;
};

} // namespace tintwick
