#pragma once

#include <QMap>
#include <QObject>
#include <QString>
#include <QStringList>

class QDBusMessage;
class QDBusPendingCallWatcher;

namespace tintwick {

/// What the user has answered when the desktop asked whether this program may take screenshots. The desktop keeps the
/// answer (org.freedesktop.impl.portal.PermissionStore) and asks once only.
class ScreenshotPermission final : public QObject
{
    Q_OBJECT

public:
    /// Reads the answer from the event loop and follows its changes.
    explicit ScreenshotPermission(QObject* parent = nullptr);

    /// False before the user was asked.
    [[nodiscard]] bool isDenied() const { return m_isDenied; }
    /// Whether the desktop has a settings program in which the user changes the answer.
    [[nodiscard]] bool hasSettings() const { return m_hasSettings; }
    /// Opens the permissions of this program in the desktop's settings.
    static void openSettings();

Q_SIGNALS:
    void changed();

private Q_SLOTS:
    void takeChange(const QDBusMessage& message);

private:
    void askStore();
    void askForSettings();
    void takeAnswer(QDBusPendingCallWatcher* call);
    void setAnswers(const QMap<QString, QStringList>& answers);

    bool m_isDenied = false;
    bool m_hasSettings = false;
};

} // namespace tintwick
