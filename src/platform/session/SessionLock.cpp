#include "SessionLock.h"

#include <QDBusConnection>

namespace tintwick {

namespace {

using namespace Qt::StringLiterals;

const QString systemBusName = u"tintwick-session-lock"_s;

} // namespace

// The signals are matched without the name of a service, because a name would first be looked up, and a program that does
// not answer would hold up this one.
SessionLock::SessionLock(QObject* parent)
    : QObject(parent)
{
    // Asks the screen locker to lock, which needs the keyboard.
    QDBusConnection::connectToBus(QDBusConnection::SystemBus, systemBusName)
        .connect({}, {}, u"org.freedesktop.login1.Session"_s, u"Lock"_s, this, SIGNAL(locked()));
    // Each desktop has its own interface for the same signal.
    QDBusConnection::sessionBus().connect({}, {}, {}, u"ActiveChanged"_s, this,
                                          SLOT(screenSaverChanged(bool)));
}

SessionLock::~SessionLock()
{
    QDBusConnection::disconnectFromBus(systemBusName);
}

void SessionLock::screenSaverChanged(bool isActive)
{
    if (isActive) {
        Q_EMIT locked();
    }
}

} // namespace tintwick
