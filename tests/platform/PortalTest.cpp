#include "DesktopSettings.h"
#include "FileChooser.h"
#include "PortalAccess.h"
#include "PortalTypes.h"
#include "support/PrivateBus.h"

#include <QDBusConnection>
#include <QDBusContext>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusVariant>
#include <QDeadlineTimer>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>

#include <chrono>
#include <memory>
#include <utility>

using namespace tintwick;
using namespace tintwick::test;
using namespace Qt::StringLiterals;

namespace {

const QString portalPath = u"/org/freedesktop/portal/desktop"_s;

const FileChooser::Question question{.parentWindow = {},
                                     .title = u"Save"_s,
                                     .suggestedName = u"a.css"_s,
                                     .folder = {},
                                     .kind = u"CSS"_s,
                                     .suffixes = {u"css"_s}};

} // namespace

/// The settings of a desktop, served on the test's bus.
class SettingsPortal final : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Settings")

public:
    SettingsByNamespace settings;
    QStringList requestedNamespaces;

    /// Sends the signal of the portal.
    static void report(const QDBusConnection& bus, const QString& space, const QString& key,
                       const QVariant& value)
    {
        QDBusMessage signal =
            QDBusMessage::createSignal(portalPath, u"org.freedesktop.portal.Settings"_s, u"SettingChanged"_s);
        signal << space << key << QVariant::fromValue(QDBusVariant(value));
        bus.send(signal);
    }

public Q_SLOTS:
    // The D-Bus interface defines the name.
    tintwick::SettingsByNamespace ReadAll(const QStringList& namespaces)
    {
        requestedNamespaces = namespaces;
        return settings;
    }
};

class PortalTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();
    void settingsAreReadAtTheStart();
    void aChangedSettingIsReported();
    void withoutTheServiceThereAreNoPreferences();
    void withoutTheServiceTheFileChooserIsUnavailable();
    void aBusThatFreezesAfterItsAnswerBlocksNothing();

private:
    std::unique_ptr<PrivateBus> m_bus;
    SettingsPortal* m_portal = nullptr;
};

void PortalTest::initTestCase()
{
    m_bus = std::make_unique<PrivateBus>();
    qDBusRegisterMetaType<SettingsByNamespace>();
}

void PortalTest::init()
{
    QDBusConnection bus = PrivateBus::connectAs(u"portal"_s);
    QVERIFY(bus.isConnected());
    m_portal = new SettingsPortal;
    QVERIFY(bus.registerObject(portalPath, m_portal, QDBusConnection::ExportAllSlots));
}

void PortalTest::cleanup()
{
    delete std::exchange(m_portal, nullptr);
    QDBusConnection::disconnectFromBus(u"portal"_s);
}

void PortalTest::settingsAreReadAtTheStart()
{
    m_portal->settings = {{u"org.freedesktop.appearance"_s, {{u"color-scheme"_s, 1U}}},
                          {u"org.gnome.desktop.interface"_s, {{u"enable-animations"_s, false}}}};
    QVERIFY(QDBusConnection(u"portal"_s).registerService(u"org.freedesktop.portal.Desktop"_s));
    const DesktopSettings settings;
    QTRY_COMPARE(settings.prefersDark(), std::optional(true));
    QTRY_VERIFY(settings.prefersReducedMotion());
    QCOMPARE(m_portal->requestedNamespaces,
             (QStringList{u"org.freedesktop.appearance"_s, u"org.gnome.desktop.interface"_s,
                          u"org.gnome.desktop.a11y.interface"_s, u"org.kde.kdeglobals.KDE"_s}));
}

void PortalTest::aChangedSettingIsReported()
{
    QDBusConnection bus(u"portal"_s);
    QVERIFY(bus.registerService(u"org.freedesktop.portal.Desktop"_s));
    const DesktopSettings settings;
    QTRY_VERIFY(!m_portal->requestedNamespaces.isEmpty());
    QSignalSpy changed(&settings, &DesktopSettings::changed);
    SettingsPortal::report(bus, u"org.freedesktop.appearance"_s, u"color-scheme"_s, 2U);
    QTRY_COMPARE(settings.prefersDark(), std::optional(false));
    SettingsPortal::report(bus, u"org.freedesktop.appearance"_s, u"color-scheme"_s, 0U);
    QTRY_COMPARE(settings.prefersDark(), std::nullopt);
    QCOMPARE(changed.count(), 2);
}

void PortalTest::withoutTheServiceThereAreNoPreferences()
{
    QDBusConnection bus(u"portal"_s);
    const DesktopSettings settings;
    // The portal may start later.
    QVERIFY(bus.registerService(u"org.freedesktop.portal.Desktop"_s));
    // The settings subscribe when the bus has answered.
    QVERIFY(QTest::qWaitFor([&] {
        SettingsPortal::report(bus, u"org.freedesktop.appearance"_s, u"color-scheme"_s, 1U);
        return settings.prefersDark() == true;
    }));
}

void PortalTest::withoutTheServiceTheFileChooserIsUnavailable()
{
    FileChooser chooser;
    QSignalSpy unavailable(&chooser, &FileChooser::unavailable);
    chooser.saveFile(question);
    QTRY_COMPARE(unavailable.count(), 1);
}

void PortalTest::aBusThatFreezesAfterItsAnswerBlocksNothing()
{
    m_portal->settings = {{u"org.freedesktop.appearance"_s, {{u"color-scheme"_s, 1U}}}};
    QVERIFY(QDBusConnection(u"portal"_s).registerService(u"org.freedesktop.portal.Desktop"_s));
    QObject context;
    // A call that blocks the event loop would keep the bus frozen, and would time out after 25 seconds.
    const QDeadlineTimer timeout(std::chrono::seconds(20));
    // Called just before the settings and the file chooser use the portal.
    askPortals(context, [this](bool) {
        m_bus->freeze();
        QTimer::singleShot(0, this, [this] { m_bus->goOn(); });
    });
    const DesktopSettings settings;
    FileChooser chooser;
    QSignalSpy unavailable(&chooser, &FileChooser::unavailable);
    chooser.saveFile(question);
    QTRY_COMPARE(settings.prefersDark(), std::optional(true));
    // The portal of the test has no file chooser.
    QTRY_COMPARE(unavailable.count(), 1);
    QVERIFY(!timeout.hasExpired());
}

QTEST_GUILESS_MAIN(PortalTest)
#include "PortalTest.moc"
