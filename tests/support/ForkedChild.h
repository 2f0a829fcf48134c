#pragma once

#include <QByteArray>

#include <functional>

namespace tintwick::testing {

/// How a forked child ended.
struct ChildEnd
{
    /// What the child's function returned, as far as it got.
    QByteArray report;
    /// The signal that ended the child, or 0.
    int signal = 0;
};

/// Runs `work` in a forked copy of this process, which changes of limits, users and mounts and also its end
/// leave without a trace, and waits for it.
[[nodiscard]] ChildEnd runInChild(const std::function<QByteArray()>& work);

} // namespace tintwick::testing
