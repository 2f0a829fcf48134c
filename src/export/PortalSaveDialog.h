#pragma once

#include <QObject>
#include <QString>

class QDBusMessage;
class QDBusPendingCallWatcher;

namespace tintwick {

struct ContentType;

/// The desktop's own save dialog, which its portal (org.freedesktop.portal.FileChooser) shows from another process. It
/// asks once and emits one of the signals; deleted before that, it takes the dialog away.
class PortalSaveDialog final : public QObject
{
    Q_OBJECT

public:
    struct Question
    {
        /// The window the dialog stands above, in the portal's words ("x11:1a0"); empty for none.
        QString parentWindow;
        QString title;
        QString suggestedName;
        /// Where to begin; empty leaves it to the desktop.
        QString folder;
    };

    explicit PortalSaveDialog(QObject* parent = nullptr);
    ~PortalSaveDialog() override;

    void ask(const Question& question, const ContentType& contentType);

Q_SIGNALS:
    void chosen(const QString& path);
    /// By the user, or by choosing a place that is no local file.
    void cancelled();
    /// There is no portal, it has no such dialog, or it went away.
    void unavailable();

private Q_SLOTS:
    void takeResponse(const QDBusMessage& message);

private:
    void takeReply(QDBusPendingCallWatcher* call);
    void giveUp();
    /// True for the first who asks.
    [[nodiscard]] bool settle();

    /// The portal's object that stands for the open dialog. Known before it says so, or a quick answer would be missed.
    QString m_request;
    bool m_isSettled = false;
};

} // namespace tintwick
