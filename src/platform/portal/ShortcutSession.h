#pragma once

#include <QList>
#include <QMap>
#include <QObject>
#include <QString>

#include <cstdint>

class QDBusMessage;

namespace tintwick {

/// One session of the portal org.freedesktop.portal.GlobalShortcuts. A session can bind shortcuts once, so other shortcuts
/// need a new session. The desktop keeps the keys of each id from one session to the next. The destructor closes the session
/// and the dialog that it may have opened.
class ShortcutSession final : public QObject
{
    Q_OBJECT

public:
    struct Request
    {
        QString id;
        /// What the user reads.
        QString description;
        /// The keys that the desktop suggests, in the shortcut notation of freedesktop.org
        /// ("ALT+SHIFT+c"); empty for none.
        QString preferredTrigger;
    };
    /// How the desktop describes the keys of each id, perhaps also of ids that were not requested. An id without keys is
    /// missing or has an empty text.
    using Triggers = QMap<QString, QString>;

    /// Whether the user wants to choose the keys.
    enum class Purpose : std::uint8_t { Use, Configure };

    /// The desktop may ask the user, in a dialog for the window that portals name so; empty for none.
    ShortcutSession(const QList<Request>& requests, Purpose purpose, QString parentWindow);
    ~ShortcutSession() override;

    /// Closes the session before the object is destroyed. The next session has the same name for the portal, so close the
    /// former one first.
    void close();
    /// Opens the desktop's dialog for the keys. Emits notConfigurable() instead where the portal has no call for it.
    void configure(const QString& parentWindow);

Q_SIGNALS:
    /// The portal exists and has made the session.
    void started();
    /// There is no such portal, or it refuses a session.
    void refused();
    /// The portal has closed the session.
    void closed();
    void notConfigurable(const QString& parentWindow);
    void triggersChanged(const tintwick::ShortcutSession::Triggers& triggers);
    void activated(const QString& id);
    void deactivated(const QString& id);

private Q_SLOTS:
    void takeActivated(const QDBusMessage& message);
    void takeDeactivated(const QDBusMessage& message);
    void takeChange(const QDBusMessage& message);
    void takeClosed(const QDBusMessage& message);

private:
    void listen();
    void askVersion();
    void create();
    void list();
    /// Whether the portal has bound all shortcuts with the session.
    [[nodiscard]] bool isComplete(const Triggers& boundWithSession) const;
    void bind();
    void setTriggers(const Triggers& triggers);
    [[nodiscard]] bool isMine(const QDBusMessage& signal, const char* signature) const;

    QList<Request> m_requests;
    Purpose m_purpose;
    QString m_parentWindow;
    unsigned m_version = 0;
    /// The path of the portal's object for this session; empty before it is made.
    QString m_handle;
    Triggers m_triggers;
};

} // namespace tintwick
