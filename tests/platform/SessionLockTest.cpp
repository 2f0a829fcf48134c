#include "SessionLock.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QProcess>
#include <QSignalSpy>
#include <QTest>

using namespace tintwick;
using namespace Qt::StringLiterals;

class SessionLockTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void theLockOfTheSessionIsReported_data();
    void theLockOfTheSessionIsReported();
    void cleanupTestCase();

private:
    QProcess m_bus;
};

void SessionLockTest::initTestCase()
{
    m_bus.start(u"dbus-daemon"_s, {u"--session"_s, u"--nofork"_s, u"--nopidfile"_s, u"--print-address"_s,
                                   u"--address=unix:tmpdir=/tmp"_s});
    QVERIFY(m_bus.waitForReadyRead());
    const QByteArray address = m_bus.readLine().trimmed();
    qputenv("DBUS_SESSION_BUS_ADDRESS", address);
    qputenv("DBUS_SYSTEM_BUS_ADDRESS", address);
}

void SessionLockTest::theLockOfTheSessionIsReported_data()
{
    QTest::addColumn<QString>("interface");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QVariantList>("arguments");
    QTest::addColumn<int>("count");
    QTest::newRow("the session is to be locked")
        << u"org.freedesktop.login1.Session"_s << u"Lock"_s << QVariantList{} << 1;
    QTest::newRow("the session is to be unlocked")
        << u"org.freedesktop.login1.Session"_s << u"Unlock"_s << QVariantList{} << 0;
    QTest::newRow("a screen saver begins")
        << u"org.freedesktop.ScreenSaver"_s << u"ActiveChanged"_s << QVariantList{true} << 1;
    QTest::newRow("the screen saver of a desktop begins")
        << u"org.gnome.ScreenSaver"_s << u"ActiveChanged"_s << QVariantList{true} << 1;
    QTest::newRow("a screen saver ends")
        << u"org.freedesktop.ScreenSaver"_s << u"ActiveChanged"_s << QVariantList{false} << 0;
}

void SessionLockTest::theLockOfTheSessionIsReported()
{
    QFETCH(const QString, interface);
    QFETCH(const QString, name);
    QFETCH(const QVariantList, arguments);
    QFETCH(const int, count);
    const auto send = [](const QString& from, const QString& member, const QVariantList& values) {
        QDBusMessage signal = QDBusMessage::createSignal(u"/any/path"_s, from, member);
        signal.setArguments(values);
        QVERIFY(QDBusConnection::sessionBus().send(signal));
    };
    const SessionLock lock;
    const QSignalSpy locked(&lock, &SessionLock::locked);
    send(interface, name, arguments);
    // Signals of one sender arrive in order.
    send(u"org.freedesktop.ScreenSaver"_s, u"ActiveChanged"_s, {true});
    QTRY_COMPARE(locked.count(), count + 1);
}

void SessionLockTest::cleanupTestCase()
{
    m_bus.kill();
    m_bus.waitForFinished();
}

QTEST_GUILESS_MAIN(SessionLockTest)
#include "SessionLockTest.moc"
