#include "PortalAccess.h"

#include "Portal.h"
#include "SessionBus.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusError>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusServiceWatcher>
#include <QGuiApplication>
#include <QPointer>

#include <cstdint>
#include <utility>
#include <vector>

namespace tintwick {

namespace {

using namespace Qt::StringLiterals;

/// Tells portals the application id, which a program outside a sandbox does not have by itself. Portals accept it only
/// before any other call on the same connection, so every call waits for this one.
class Registration final : public QObject
{
public:
    [[nodiscard]] static Registration& shared()
    {
        static QPointer<Registration> registration;
        if (!registration) {
            registration = new Registration(QCoreApplication::instance());
        }
        return *registration;
    }

    void whenDone(QObject& context, std::function<void()> then)
    {
        if (m_state == State::Done) {
            then();
            return;
        }
        m_waiting.emplace_back(&context, std::move(then));
        if (std::exchange(m_state, State::Asked) == State::Unknown) {
            send();
        }
    }

private:
    enum class State : std::uint8_t { Unknown, Asked, Done };

    explicit Registration(QObject* parent)
        : QObject(parent)
    {
        // Only the service that was told knows the id.
        auto* watcher = new QDBusServiceWatcher(portal::service, QDBusConnection::sessionBus(),
                                                QDBusServiceWatcher::WatchForUnregistration, this);
        connect(watcher, &QDBusServiceWatcher::serviceUnregistered, this, [this] {
            if (m_state == State::Done) {
                m_state = State::Unknown;
            }
        });
    }

    void send()
    {
        constexpr int patience = 3000; // milliseconds
        const QDBusMessage call = portal::call(u"org.freedesktop.host.portal.Registry"_s, u"Register"_s)
                                  << QGuiApplication::desktopFileName() << QVariantMap();
        auto* reply =
            new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(call, patience), this);
        // A portal without a registry, and one that finds no desktop entry of this id, still serve calls without an id.
        connect(reply, &QDBusPendingCallWatcher::finished, this, [this, reply] {
            reply->deleteLater();
            m_state = reply->error().type() == QDBusError::NoReply ? State::Unknown : State::Done;
            for (const auto& [context, then] : std::exchange(m_waiting, {})) {
                if (context) {
                    then();
                }
            }
        });
    }

    State m_state = State::Unknown;
    std::vector<std::pair<QPointer<QObject>, std::function<void()>>> m_waiting;
};

} // namespace

void askPortals(QObject& context, std::function<void(bool works)> then, std::chrono::milliseconds patience)
{
    askSessionBus(
        context,
        [&context, then = std::move(then)](bool works) {
            if (works) {
                Registration::shared().whenDone(context, [then] { then(true); });
            } else {
                then(false);
            }
        },
        patience);
}

} // namespace tintwick
