#pragma once

#include <QObject>

namespace tintwick {

/// Reports the signals that ask a process to end (SIGTERM, SIGINT, SIGHUP) in the event loop. There may be one object.
class QuitSignals final : public QObject
{
    Q_OBJECT

public:
    explicit QuitSignals(QObject* parent = nullptr);
    /// From here on such a signal has no effect, because the process is ending.
    ~QuitSignals() override;

Q_SIGNALS:
    void received();

private:
    void takeSignals();
};

} // namespace tintwick
