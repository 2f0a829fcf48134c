#include "NullPlatform.h"

#include <QSignalSpy>
#include <QTest>

using namespace tintwick;

namespace {

/// Records the reasons of refused picks.
class RefusalListener final : public PickingSession::Listener
{
public:
    QStringList refusals;

    void refused(const QString& reason) override { refusals << reason; }
    void pointerMoved(const ScreenPosition&) override
    {
        QFAIL("a session that never begins reports no pointer");
    }
    void waiting(const QString&) override { QFAIL("nothing to wait for"); }
    void buttonPressed(PointerButton, const ScreenPosition&, int) override { QFAIL("no input"); }
    void scrolled(ScrollDelta) override { QFAIL("no input"); }
    void keyPressed(const KeyPress&) override { QFAIL("no input"); }
    void contentChanged() override { QFAIL("no screen"); }
    void lost() override { QFAIL("nothing to lose"); }
};

} // namespace

/// A desktop without any service reports each request as unsupported.
class NullPlatformTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void isUsedOnlyWhereTheToolkitDrawsIntoMemory_data();
    void isUsedOnlyWhereTheToolkitDrawsIntoMemory();
    void aPickIsRefusedFromTheEventLoop();
    void anEndedPickIsNotRefused();
    void aShortcutIsRefused();
    void noOtherServiceIsAvailable();
};

void NullPlatformTest::isUsedOnlyWhereTheToolkitDrawsIntoMemory_data()
{
    QTest::addColumn<QByteArray>("toolkit");
    QTest::addColumn<bool>("isUsed");
    QTest::newRow("offscreen") << QByteArray("offscreen") << true;
    QTest::newRow("offscreen with an option") << QByteArray("offscreen:configfile=x") << true;
    QTest::newRow("minimal") << QByteArray("minimal") << true;
    QTest::newRow("X11") << QByteArray("xcb") << false;
    QTest::newRow("not set") << QByteArray() << false;
}

void NullPlatformTest::isUsedOnlyWhereTheToolkitDrawsIntoMemory()
{
    QFETCH(const QByteArray, toolkit);
    QFETCH(const bool, isUsed);
    const QByteArray before = qgetenv("QT_QPA_PLATFORM");
    qputenv("QT_QPA_PLATFORM", toolkit);
    QString whyNot;
    const auto platform = NullPlatform::connect(whyNot);
    qputenv("QT_QPA_PLATFORM", before);
    QCOMPARE(platform != nullptr, isUsed);
    QCOMPARE(whyNot.isEmpty(), isUsed);
}

void NullPlatformTest::aPickIsRefusedFromTheEventLoop()
{
    NullPlatform platform;
    RefusalListener listener;
    const auto session = platform.startPick(listener);
    QVERIFY(listener.refusals.isEmpty());
    QCoreApplication::processEvents();
    QCOMPARE(listener.refusals.size(), 1);
    QVERIFY(!listener.refusals.first().isEmpty());
    QVERIFY(session->screens().empty());
    QVERIFY(session->grab(0, {0, 0, 1, 1}).isNull());
}

void NullPlatformTest::anEndedPickIsNotRefused()
{
    NullPlatform platform;
    RefusalListener listener;
    const auto session = platform.startPick(listener);
    session->end();
    QCoreApplication::processEvents();
    QVERIFY(listener.refusals.isEmpty());
}

void NullPlatformTest::aShortcutIsRefused()
{
    NullPlatform platform;
    const QSignalSpy refusals(&platform.globalShortcuts(), &GlobalShortcuts::refused);
    platform.globalShortcuts().bind(QStringLiteral("pick"), {}, std::nullopt);
    QCOMPARE(refusals.size(), 0);
    platform.globalShortcuts().bind(QStringLiteral("pick"), {}, Shortcut{});
    QCOMPARE(refusals.size(), 1);
    QCOMPARE(refusals.first().at(1).value<ShortcutRefusal>().reason, ShortcutRefusal::Reason::Unsupported);
    QVERIFY(platform.globalShortcuts().keyChoice() == GlobalShortcuts::KeyChoice::None);
}

void NullPlatformTest::noOtherServiceIsAvailable()
{
    NullPlatform platform;
    QVERIFY(!platform.capturePermission().isGranted);
    QVERIFY(!platform.keyRecording());
    QVERIFY(!platform.tray());
    QVERIFY(!platform.keyboardLayout().characterForKey(0));
}

QTEST_MAIN(NullPlatformTest)
#include "NullPlatformTest.moc"
