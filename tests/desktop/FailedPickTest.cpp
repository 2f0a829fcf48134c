#include "desktop/TintwickProcess.h"
#include "support/KeyCombination.h"
#include "support/WaitUntil.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QStringList>
#include <QTest>
#include <QVariantMap>

#include <X11/keysym.h>
#include <linux/input-event-codes.h>

using namespace tintwick;

namespace {

using namespace Qt::StringLiterals;

// From the top left corner of the panel.
constexpr QPoint pickButton(190, 92);
constexpr QPoint noticeBar(25, 80);
constexpr QPoint pickButtonBelowNotice(190, 145);

constexpr KeyCombination altShiftC{KEY_C, XCB_MOD_MASK_1 | XCB_MOD_MASK_SHIFT};

constexpr QRgb accent = qRgb(97, 102, 224);

/// The notification service of a session bus.
class NotificationService final : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Notifications")

public:
    struct Notification
    {
        QString summary;
        QString body;
    };

    explicit NotificationService(const QString& busAddress)
        : m_bus(QDBusConnection::connectToBus(busAddress, u"notification service"_s))
    {
        m_bus.registerObject(u"/org/freedesktop/Notifications"_s, this, QDBusConnection::ExportAllSlots);
        m_bus.registerService(u"org.freedesktop.Notifications"_s);
    }
    ~NotificationService() override { QDBusConnection::disconnectFromBus(u"notification service"_s); }

    [[nodiscard]] const QList<Notification>& notifications() const { return m_notifications; }

    [[nodiscard]] bool waitForNotifications(qsizetype count) const
    {
        return waitUntil([&] {
            QCoreApplication::processEvents();
            return m_notifications.size() == count;
        });
    }

public Q_SLOTS:
    // D-Bus defines this name.
    uint Notify(const QString& application, uint replaced, const QString& icon, const QString& summary,
                const QString& body, const QStringList& actions, const QVariantMap& hints, int timeout)
    {
        Q_UNUSED(application);
        Q_UNUSED(replaced);
        Q_UNUSED(icon);
        Q_UNUSED(actions);
        Q_UNUSED(hints);
        Q_UNUSED(timeout);
        m_notifications.append({summary, body});
        return static_cast<uint>(m_notifications.size());
    }

private:
    QDBusConnection m_bus;
    QList<Notification> m_notifications;
};

} // namespace

/// A pick that cannot begin shows the reason: in the panel if it was started there, else in a notification.
class FailedPickTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aPickFromThePanelReportsInThePanel();
    void aPickByTheShortcutReportsInANotification();
    void aPickByTheMenuReportsInANotification();
};

void FailedPickTest::aPickFromThePanelReportsInThePanel()
{
    PrivateDesktop desktop({.sessionBus = true});
    const NotificationService service(desktop.environment().value(u"DBUS_SESSION_BUS_ADDRESS"_s));
    TintwickProcess program(desktop);
    QVERIFY(program.waitForTrayIcon());
    const auto openPanel = [&] {
        desktop.clickAt(program.trayIcon().center());
        return program.waitForPanel();
    };
    const auto noticeIsShown = [&] {
        const QRect panel = program.panel();
        return !panel.isEmpty() && desktop.pixel(panel.topLeft() + noticeBar) == accent;
    };
    DesktopConnection other(desktop.display());
    QVERIFY(openPanel());
    const QRect place = program.panel();
    QVERIFY(other.grabKeyboard());
    desktop.clickAt(place.topLeft() + pickButton);
    QVERIFY(waitUntil(noticeIsShown));
    QCOMPARE(program.panel(), place);
    QVERIFY(!program.loupe());

    // Closing the panel removes the sentence.
    other.ungrabAll();
    desktop.clickAt(program.trayIcon().center());
    QVERIFY(program.waitForPanelToHide());
    QVERIFY(openPanel());
    static_cast<void>(desktop.settledScreenshot());
    QVERIFY(!noticeIsShown());

    // The next pick removes the sentence.
    QVERIFY(other.grabKeyboard());
    desktop.clickAt(place.topLeft() + pickButton);
    QVERIFY(waitUntil(noticeIsShown));
    other.ungrabAll();
    desktop.clickAt(place.topLeft() + pickButtonBelowNotice);
    QVERIFY(program.waitForLoupe());
    desktop.typeKey(XK_Escape);
    QVERIFY(program.waitForPickToEnd());
    QVERIFY(openPanel());
    static_cast<void>(desktop.settledScreenshot());
    QVERIFY(!noticeIsShown());
    QVERIFY(service.waitForNotifications(0));
}

void FailedPickTest::aPickByTheShortcutReportsInANotification()
{
    PrivateDesktop desktop({.sessionBus = true});
    const NotificationService service(desktop.environment().value(u"DBUS_SESSION_BUS_ADDRESS"_s));
    TintwickProcess program(desktop);
    QVERIFY(program.waitForTrayIcon());
    DesktopConnection other(desktop.display());
    QVERIFY(waitUntil([&] { return altShiftC.isHeld(other); }));
    QVERIFY(other.grabPointer());
    desktop.typeKey(XK_c, {XK_Alt_L, XK_Shift_L});
    QVERIFY(service.waitForNotifications(1));
    QCOMPARE(service.notifications().first().summary, u"Could not pick a color"_s);
    QVERIFY(service.notifications().first().body.endsWith(u'.'));
    QVERIFY(!program.loupe());
    QVERIFY(program.panel().isEmpty());

    other.ungrabAll();
    desktop.typeKey(XK_c, {XK_Alt_L, XK_Shift_L});
    QVERIFY(program.waitForLoupe());
    QCOMPARE(service.notifications().size(), 1);
}

void FailedPickTest::aPickByTheMenuReportsInANotification()
{
    PrivateDesktop desktop({.sessionBus = true});
    const NotificationService service(desktop.environment().value(u"DBUS_SESSION_BUS_ADDRESS"_s));
    TintwickProcess program(desktop);
    DesktopConnection other(desktop.display());
    QVERIFY(program.waitForTrayIcon());
    QVERIFY(other.grabPointer());
    QVERIFY(program.openMenuWithoutPointer());
    program.choosePickWithoutPointer();
    QVERIFY(service.waitForNotifications(1));
    QVERIFY(program.panel().isEmpty());
}

QTEST_GUILESS_MAIN(FailedPickTest)
#include "FailedPickTest.moc"
