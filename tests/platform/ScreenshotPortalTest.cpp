#include "ScreenshotPermission.h"
#include "ScreenshotRequest.h"
#include "support/PrivateBus.h"
#include "support/ScriptedScreenshotPortal.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusVariant>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QMap>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <chrono>
#include <memory>

using namespace tintwick;
using namespace tintwick::test;
using namespace Qt::StringLiterals;

using Answers = QMap<QString, QStringList>;

Q_DECLARE_METATYPE(Answers)

/// The desktop's store of the answers that the user gave.
class PermissionStore final : public QObject, protected QDBusContext
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.impl.portal.PermissionStore")

public:
    static constexpr QLatin1StringView name = "org.freedesktop.impl.portal.PermissionStore"_L1;
    static constexpr QLatin1StringView path = "/org/freedesktop/impl/portal/PermissionStore"_L1;

    Answers answers;

    void report(const QDBusConnection& bus) const
    {
        QDBusMessage signal = QDBusMessage::createSignal(path, name, u"Changed"_s);
        signal << u"screenshot"_s << u"screenshot"_s << false << QVariant::fromValue(QDBusVariant(0))
               << QVariant::fromValue(answers);
        bus.send(signal);
    }

public Q_SLOTS:
    // The D-Bus interface defines the name.
    Answers Lookup(const QString& table, const QString& id, QDBusVariant& data)
    {
        if (table != u"screenshot"_s || id != u"screenshot"_s || answers.isEmpty()) {
            sendErrorReply(u"org.freedesktop.portal.Error.NotFound"_s, u"No entry"_s);
        }
        data = QDBusVariant(0);
        return answers;
    }
};

/// The settings program of the desktop.
class SettingsProgram final : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Application")

public:
    QString action;
    QByteArray signature;
    QString panel;
    QString argument;

public Q_SLOTS:
    // The D-Bus interface defines the name.
    void ActivateAction(const QString& name, const QVariantList& parameters, const QVariantMap&)
    {
        action = name;
        const auto parameter = parameters.value(0).value<QDBusArgument>();
        signature = parameter.currentSignature().toLatin1();
        QVariantList arguments;
        parameter.beginStructure();
        parameter >> panel >> arguments;
        parameter.endStructure();
        argument = arguments.value(0).toString();
    }
};

/// How the program asks the desktop's portal for a picture, and for the permission to take one.
class ScreenshotPortalTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();
    void aPictureIsReadAndItsFileIsDeleted();
    void theUserIsNotAskedToChooseAnything();
    void otherAnswersAreNoPicture_data();
    void otherAnswersAreNoPicture();
    void aFileThatIsNoPictureFailsAndIsDeleted();
    void aPortalThatDoesNotAnswerFailsInTheEnd();
    void withoutThePortalItIsUnavailable();
    void aDenialIsKnownBeforeTheFirstRequest_data();
    void aDenialIsKnownBeforeTheFirstRequest();
    void aDenialDuringTheRunIsNoticed();
    void settingsAreKnownWhereTheDesktopHasThem();
    void theSettingsAreOpenedAtTheProgramsPermissions();

private:
    std::unique_ptr<PrivateBus> m_bus;
    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<ScriptedScreenshotPortal> m_portal;
};

namespace {

QDBusConnection desktop()
{
    return QDBusConnection(u"desktop"_s);
}

QImage twoPixels()
{
    QImage image(2, 1, QImage::Format_RGB32);
    image.setPixel(0, 0, 0xff1e90ff);
    image.setPixel(1, 0, 0xff010203);
    return image;
}

} // namespace

void ScreenshotPortalTest::initTestCase()
{
    m_bus = std::make_unique<PrivateBus>();
    qDBusRegisterMetaType<Answers>();
}

void ScreenshotPortalTest::init()
{
    QVERIFY(PrivateBus::connectAs(u"desktop"_s).isConnected());
    m_folder = std::make_unique<QTemporaryDir>();
    m_portal = std::make_unique<ScriptedScreenshotPortal>();
    m_portal->file = m_folder->filePath(u"Screenshot 1.png"_s);
}

void ScreenshotPortalTest::cleanup()
{
    m_portal.reset();
    QDBusConnection::disconnectFromBus(u"desktop"_s);
}

void ScreenshotPortalTest::aPictureIsReadAndItsFileIsDeleted()
{
    QVERIFY(m_portal->offer(desktop()));
    QVERIFY(twoPixels().save(m_portal->file));
    ScreenshotRequest request;
    QSignalSpy taken(&request, &ScreenshotRequest::taken);
    request.takeScreenshot();
    QTRY_COMPARE(taken.count(), 1);
    QCOMPARE(taken.at(0).at(0).value<QImage>().convertedTo(QImage::Format_RGB32), twoPixels());
    QVERIFY(!QFileInfo::exists(m_portal->file));
}

void ScreenshotPortalTest::theUserIsNotAskedToChooseAnything()
{
    QVERIFY(m_portal->offer(desktop()));
    ScreenshotRequest request;
    request.takeScreenshot();
    QTRY_COMPARE(m_portal->requests, 1);
    QCOMPARE(m_portal->lastOptions.value(u"interactive"_s), QVariant(false));
}

void ScreenshotPortalTest::otherAnswersAreNoPicture_data()
{
    QTest::addColumn<unsigned>("response");
    QTest::addColumn<int>("cancelled");
    QTest::addColumn<int>("failed");
    QTest::newRow("the user closed the question") << 1U << 1 << 0;
    QTest::newRow("the user denied it") << 2U << 0 << 1;
    QTest::newRow("a later version's answer") << 7U << 0 << 1;
}

void ScreenshotPortalTest::otherAnswersAreNoPicture()
{
    QFETCH(const unsigned, response);
    QVERIFY(m_portal->offer(desktop()));
    m_portal->response = response;
    ScreenshotRequest request;
    QSignalSpy taken(&request, &ScreenshotRequest::taken);
    QSignalSpy cancelled(&request, &ScreenshotRequest::cancelled);
    QSignalSpy failed(&request, &ScreenshotRequest::failed);
    request.takeScreenshot();
    QTRY_COMPARE(cancelled.count() + failed.count(), 1);
    QTEST(static_cast<int>(cancelled.count()), "cancelled");
    QTEST(static_cast<int>(failed.count()), "failed");
    QCOMPARE(taken.count(), 0);
}

void ScreenshotPortalTest::aFileThatIsNoPictureFailsAndIsDeleted()
{
    QVERIFY(m_portal->offer(desktop()));
    QFile file(m_portal->file);
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write("no picture") == 10);
    file.close();
    ScreenshotRequest request;
    QSignalSpy failed(&request, &ScreenshotRequest::failed);
    request.takeScreenshot();
    QTRY_COMPARE(failed.count(), 1);
    QVERIFY(!file.exists());
}

void ScreenshotPortalTest::aPortalThatDoesNotAnswerFailsInTheEnd()
{
    QVERIFY(m_portal->offer(desktop()));
    QVERIFY(twoPixels().save(m_portal->file));
    m_portal->isSilent = true;
    ScreenshotRequest request;
    const QSignalSpy taken(&request, &ScreenshotRequest::taken);
    const QSignalSpy failed(&request, &ScreenshotRequest::failed);
    request.takeScreenshot(std::chrono::milliseconds(200));
    QTRY_COMPARE(failed.count(), 1);
    if (m_portal->requests > 0) {
        m_portal->respond(desktop());
    }
    // Its answer comes after the late one.
    m_portal->isSilent = false;
    ScreenshotRequest next;
    const QSignalSpy nextTaken(&next, &ScreenshotRequest::taken);
    next.takeScreenshot();
    QTRY_COMPARE(nextTaken.count(), 1);
    QCOMPARE(taken.count(), 0);
    QCOMPARE(failed.count(), 1);
}

void ScreenshotPortalTest::withoutThePortalItIsUnavailable()
{
    ScreenshotRequest request;
    QSignalSpy unavailable(&request, &ScreenshotRequest::unavailable);
    request.takeScreenshot();
    QTRY_COMPARE(unavailable.count(), 1);
}

void ScreenshotPortalTest::aDenialIsKnownBeforeTheFirstRequest_data()
{
    QTest::addColumn<Answers>("answers");
    QTest::addColumn<bool>("isDenied");
    const QString ours = u"org.tintwick.Tintwick"_s;
    const Answers otherProgram{{u"org.example.Other"_s, {u"no"_s}}};
    QTest::newRow("nobody was asked") << Answers{} << false;
    QTest::newRow("another program was denied it") << otherProgram << false;
    QTest::newRow("allowed") << Answers{{ours, {u"yes"_s}}} << false;
    QTest::newRow("denied") << Answers{{ours, {u"no"_s}}} << true;
    QTest::newRow("asked every time") << Answers{{ours, {u"ask"_s}}} << false;
    QTest::newRow("denied to programs without an identity") << Answers{{QString(), {u"no"_s}}} << true;
    QTest::newRow("allowed, denied to programs without an identity")
        << Answers{{QString(), {u"no"_s}}, {ours, {u"yes"_s}}} << false;
}

void ScreenshotPortalTest::aDenialIsKnownBeforeTheFirstRequest()
{
    QFETCH(const Answers, answers);
    QFETCH(const bool, isDenied);
    PermissionStore store;
    store.answers = answers;
    QDBusConnection bus = desktop();
    QVERIFY(bus.registerObject(PermissionStore::path, &store, QDBusConnection::ExportAllSlots));
    QVERIFY(bus.registerService(PermissionStore::name));
    const ScreenshotPermission permission;
    QVERIFY(!permission.isDenied());
    // An answer of the same connection that comes later than the first.
    const QDBusMessage later = QDBusMessage::createMethodCall(PermissionStore::name, PermissionStore::path,
                                                              PermissionStore::name, u"Lookup"_s);
    QDBusConnection::sessionBus().call(later, QDBus::BlockWithGui);
    QTRY_COMPARE(permission.isDenied(), isDenied);
}

void ScreenshotPortalTest::aDenialDuringTheRunIsNoticed()
{
    PermissionStore store;
    QDBusConnection bus = desktop();
    QVERIFY(bus.registerObject(PermissionStore::path, &store, QDBusConnection::ExportAllSlots));
    QVERIFY(bus.registerService(PermissionStore::name));
    const ScreenshotPermission permission;
    QSignalSpy changed(&permission, &ScreenshotPermission::changed);
    store.answers = {{QString(), {u"no"_s}}};
    store.report(bus);
    QTRY_VERIFY(permission.isDenied());
    store.answers = {{QString(), {u"yes"_s}}};
    store.report(bus);
    QTRY_VERIFY(!permission.isDenied());
    QCOMPARE(changed.count(), 2);
}

void ScreenshotPortalTest::settingsAreKnownWhereTheDesktopHasThem()
{
    const ScreenshotPermission without;
    // The bus answers in order, so it has answered the question before.
    QVERIFY(QDBusConnection::sessionBus().interface()->registeredServiceNames().isValid());
    m_bus->addActivatable(u"org.gnome.Settings"_s);
    const ScreenshotPermission with;
    QTRY_VERIFY(with.hasSettings());
    QVERIFY(!without.hasSettings());
}

void ScreenshotPortalTest::theSettingsAreOpenedAtTheProgramsPermissions()
{
    SettingsProgram settings;
    QDBusConnection bus = desktop();
    QVERIFY(bus.registerObject(u"/org/gnome/Settings"_s, &settings, QDBusConnection::ExportAllSlots));
    QVERIFY(bus.registerService(u"org.gnome.Settings"_s));
    ScreenshotPermission::openSettings();
    QTRY_COMPARE(settings.action, u"launch-panel"_s);
    QCOMPARE(settings.signature, QByteArray("(sav)"));
    QCOMPARE(settings.panel, u"applications"_s);
    QCOMPARE(settings.argument, u"org.tintwick.Tintwick"_s);
}

QTEST_GUILESS_MAIN(ScreenshotPortalTest)
#include "ScreenshotPortalTest.moc"
