#include "desktop/TintwickProcess.h"
#include "support/WaitUntil.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QStringList>
#include <QTest>

#include <memory>

using namespace tintwick;

namespace {

using namespace Qt::StringLiterals;

/// The part of a desktop's panel that draws tray icons in its own window (StatusNotifierHost).
class NotifierHost final : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.kde.StatusNotifierWatcher")
    Q_PROPERTY(bool IsStatusNotifierHostRegistered READ isHostRegistered)
    Q_PROPERTY(int ProtocolVersion READ protocolVersion)
    Q_PROPERTY(QStringList RegisteredStatusNotifierItems READ items)

public:
    explicit NotifierHost(const QString& busAddress)
        : m_bus(QDBusConnection::connectToBus(busAddress, u"notifier host"_s))
    {
        m_bus.registerObject(u"/StatusNotifierWatcher"_s, this,
                             QDBusConnection::ExportAllSlots | QDBusConnection::ExportAllProperties);
        m_bus.registerService(u"org.kde.StatusNotifierWatcher"_s);
    }
    ~NotifierHost() override { QDBusConnection::disconnectFromBus(u"notifier host"_s); }

    [[nodiscard]] bool isHostRegistered() const { return true; }
    [[nodiscard]] int protocolVersion() const { return 0; }
    [[nodiscard]] QStringList items() const { return m_items; }

    [[nodiscard]] bool waitForItem() const
    {
        return waitUntil([this] {
            QCoreApplication::processEvents();
            return !m_items.isEmpty();
        });
    }

    /// Reports a click on the icon to the program; true when the program has answered.
    [[nodiscard]] bool activate(QPoint position) const
    {
        QDBusMessage click = QDBusMessage::createMethodCall(m_items.last(), u"/StatusNotifierItem"_s,
                                                            u"org.kde.StatusNotifierItem"_s, u"Activate"_s);
        click << position.x() << position.y();
        return m_bus.call(click).type() == QDBusMessage::ReplyMessage;
    }

public Q_SLOTS:
    // D-Bus defines this name.
    void RegisterStatusNotifierItem(const QString& service) { m_items.append(service); }

private:
    QDBusConnection m_bus;
    QStringList m_items;
};

} // namespace

/// Trays that draw the icon themselves, do not report its position, and forward clicks.
class NotifierHostTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void thePanelOpensAtThePointer();
    void theClickThatHidesThePanelDoesNotShowItAgain();
    void aHostThatReportsThePressTogglesThePanel();
    void aClickElsewhereIsNotMistakenForOneOnTheIcon();
    void afterAFailedPickThePanelReturnsToItsPlace();

private:
    struct Desk
    {
        PrivateDesktop desktop{{.tray = false, .sessionBus = true}};
        NotifierHost host{desktop.environment().value(u"DBUS_SESSION_BUS_ADDRESS"_s)};
        TintwickProcess program{desktop};
    };
};

void NotifierHostTest::thePanelOpensAtThePointer()
{
    Desk desk;
    QVERIFY(desk.host.waitForItem());
    const QPoint onIcon(900, 10);
    desk.desktop.movePointer(onIcon);
    QVERIFY(desk.host.activate(onIcon));
    QVERIFY(desk.program.waitForPanel());
    QCOMPARE(desk.program.panel(), QRect(900 - 190, 11, 380, 580));
}

void NotifierHostTest::theClickThatHidesThePanelDoesNotShowItAgain()
{
    Desk desk;
    QVERIFY(desk.host.waitForItem());
    const QPoint onIcon(900, 5);
    desk.desktop.movePointer(onIcon);
    QVERIFY(desk.host.activate(onIcon));
    QVERIFY(desk.program.waitForPanel());

    // The host's window receives the press and reports it a little later.
    desk.desktop.click();
    QVERIFY(desk.program.waitForPanelToHide());
    QVERIFY(desk.host.activate(onIcon));
    QVERIFY(desk.program.panel().isEmpty());

    QVERIFY(desk.host.activate(onIcon));
    QVERIFY(desk.program.waitForPanel());
}

void NotifierHostTest::aHostThatReportsThePressTogglesThePanel()
{
    using Button = PrivateDesktop::Button;
    Desk desk;
    QVERIFY(desk.host.waitForItem());
    const QPoint onIcon(900, 5);
    desk.desktop.movePointer(onIcon);
    for (int round = 0; round < 2; ++round) {
        desk.desktop.press(Button::Left);
        QVERIFY(desk.host.activate(onIcon));
        QVERIFY(desk.program.waitForPanel());
        desk.desktop.release(Button::Left);
        static_cast<void>(desk.desktop.settledScreenshot());
        QVERIFY(!desk.program.panel().isEmpty());

        desk.desktop.press(Button::Left);
        QVERIFY(desk.host.activate(onIcon));
        QVERIFY(desk.program.waitForPanelToHide());
        desk.desktop.release(Button::Left);
    }
}

void NotifierHostTest::aClickElsewhereIsNotMistakenForOneOnTheIcon()
{
    Desk desk;
    QVERIFY(desk.host.waitForItem());
    const QPoint onIcon(900, 5);
    desk.desktop.movePointer(onIcon);
    QVERIFY(desk.host.activate(onIcon));
    QVERIFY(desk.program.waitForPanel());
    desk.desktop.movePointer({100, 700});
    desk.desktop.click();
    QVERIFY(desk.program.waitForPanelToHide());
    desk.desktop.movePointer(onIcon);
    QVERIFY(desk.host.activate(onIcon));
    QVERIFY(desk.program.waitForPanel());
}

void NotifierHostTest::afterAFailedPickThePanelReturnsToItsPlace()
{
    Desk desk;
    QVERIFY(desk.host.waitForItem());
    const QPoint onIcon(300, 5);
    desk.desktop.movePointer(onIcon);
    QVERIFY(desk.host.activate(onIcon));
    QVERIFY(desk.program.waitForPanel());
    const QRect place = desk.program.panel();
    DesktopConnection other(desk.desktop.display());
    QVERIFY(other.grabKeyboard());
    desk.desktop.clickAt(place.topLeft() + QPoint(190, 92));
    // The accent colour of the notice.
    QVERIFY(waitUntil(
        [&] { return desk.desktop.pixel(place.topLeft() + QPoint(25, 80)) == qRgb(97, 102, 224); }));
    QCOMPARE(desk.program.panel(), place);
}

QTEST_GUILESS_MAIN(NotifierHostTest)
#include "NotifierHostTest.moc"
