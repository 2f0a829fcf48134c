#pragma once

#include <QByteArray>

#include <functional>

namespace tintwick::test {

/// How a forked child ended.
struct ChildEnd
{
    /// The return value of the child's function, if it returned.
    QByteArray report;
    /// The signal that ended the child, or 0.
    int signal = 0;
};

/// Runs `work` in a forked copy of this process and waits for it. Changes of limits, users and mounts, and its
/// end, do not affect this process.
[[nodiscard]] ChildEnd runInChild(const std::function<QByteArray()>& work);

} // namespace tintwick::test
