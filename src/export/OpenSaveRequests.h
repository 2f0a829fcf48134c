#pragma once

#include <QObject>

namespace tintwick {

/// Counts the requests of this process for files whose dialog is open, which may be a window of another program.
class OpenSaveRequests final : public QObject
{
    Q_OBJECT

public:
    [[nodiscard]] static OpenSaveRequests& shared();

    void add();
    void remove();

Q_SIGNALS:
    /// The first one was added or the last one removed.
    void anyChanged(bool isAny);
    /// A request has written its file.
    void saved(const QString& path);

private:
    int m_count = 0;
};

} // namespace tintwick
