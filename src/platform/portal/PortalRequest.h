#pragma once

#include <QObject>
#include <QString>
#include <QVariantMap>

#include <cstdint>
#include <functional>

class QDBusMessage;
class QDBusPendingCallWatcher;

namespace tintwick {

/// One call of a portal that answers later, usually after the user has. It makes one call and ends once: with an answer
/// or with unavailable(). The destructor closes the portal's dialog if the request has not ended.
class PortalRequest : public QObject
{
    Q_OBJECT

public:
    ~PortalRequest() override;

Q_SIGNALS:
    /// There is no portal, it lacks the interface, or its service ended.
    void unavailable();

protected:
    explicit PortalRequest(QObject* parent);

    using Call = std::function<QDBusMessage(const QString& token)>;
    /// Subscribes to the answer, then sends the call, from the event loop. The token is for the call's option
    /// "handle_token".
    void send(const Call& call);

    enum class Answer : std::uint8_t { Success, Cancelled, Failed };
    /// Closes the portal's dialog and ignores the answer. Nothing is emitted.
    void close();

    /// Called with the answer. Failed also when the user has denied the permission.
    virtual void takeAnswer(Answer answer, const QVariantMap& results) = 0;

private Q_SLOTS:
    void takeResponse(const QDBusMessage& message);

private:
    void sendNow(const Call& call);
    void takeHandle(QDBusPendingCallWatcher* call);
    void giveUp();
    /// False when the request has ended before.
    [[nodiscard]] bool end();

    /// The path of the portal's object for this request; empty before the call.
    QString m_handle;
    bool m_hasEnded = false;
};

} // namespace tintwick
