#pragma once

#include <QDBusConnection>
#include <QDBusVirtualObject>
#include <QMap>
#include <QStringList>
#include <QVariantMap>

namespace tintwick::test {

/// The portals for global shortcuts and for the registration of programs, on the test's own connection. Each desktop differs
/// in what it has and demands.
class ScriptedShortcutsPortal final : public QDBusVirtualObject
{
    Q_OBJECT

public:
    enum class Answer : unsigned { Success = 0, Cancelled = 1 };

    // What the portal is like.
    bool hasShortcuts = true;
    unsigned version = 1;
    bool hasRegistry = false;
    bool needsApplicationId = false;
    bool needsDescriptions = false;
    /// Binds only what came with the session, and at once.
    bool bindsOfSessionOnly = false;
    bool listsShortcuts = true;
    bool canConfigure = true;
    bool replies = true;

    // What the user does.
    QMap<QString, QString> keys;
    Answer answer = Answer::Success;

    /// The keys of earlier sessions.
    QMap<QString, QString> knownKeys;

    /// All calls, also those without a reply.
    int calls = 0;
    /// The calls in order. A shortcut is written as "id [description] [trigger]".
    QStringList journal;
    /// The path of the newest session.
    QString session;

    explicit ScriptedShortcutsPortal(QDBusConnection bus);

    void press(const QString& id) { sendKey(QStringLiteral("Activated"), session, id); }
    void release(const QString& id) { sendKey(QStringLiteral("Deactivated"), session, id); }
    void sendKey(const QString& signal, const QString& ofSession, const QString& id);
    /// The user changes the keys of a shortcut in the settings of the desktop.
    void change(const QString& id, const QString& newKeys);
    void closeSession();

    [[nodiscard]] QString introspect(const QString&) const override { return {}; }
    bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override;

private:
    void registerProgram(const QDBusMessage& call);
    void tellVersion(const QDBusMessage& call);
    void createSession(const QDBusMessage& call);
    void listShortcuts(const QDBusMessage& call);
    void bindShortcuts(const QDBusMessage& call);
    void configureShortcuts(const QDBusMessage& call);

    [[nodiscard]] QMap<QString, QString> keysOf(const QStringList& ids) const;

    void reply(const QDBusMessage& call, const QVariantList& values = {});
    void refuse(const QDBusMessage& call, const QString& reason);
    /// Replies with the path of the request and sends its answer.
    void respond(const QDBusMessage& call, const QVariantMap& options, Answer how,
                 const QVariantMap& results);

    QDBusConnection m_bus;
    QString m_applicationId;
    bool m_wasCalled = false;
    bool m_isBound = false;
    int m_sessions = 0;
    QStringList m_idsOfSession;
};

} // namespace tintwick::test
