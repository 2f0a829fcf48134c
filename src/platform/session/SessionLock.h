#pragma once

#include <QObject>

namespace tintwick {

/// Reports that the session locks, as long as the object exists. Without a bus it reports nothing.
class SessionLock final : public QObject
{
    Q_OBJECT

public:
    explicit SessionLock(QObject* parent = nullptr);
    ~SessionLock() override;

Q_SIGNALS:
    void locked();

private Q_SLOTS:
    void screenSaverChanged(bool isActive);
};

} // namespace tintwick
