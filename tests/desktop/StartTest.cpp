#include "desktop/TintwickProcess.h"
#include "support/Pattern.h"
#include "support/TestWindow.h"
#include "support/WaitUntil.h"

#include <QTest>

#include <X11/keysym.h>

#include <chrono>

using namespace tintwick;
using namespace Qt::StringLiterals;

/// What opens by itself after a start, and the way to everything without a tray.
class StartTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theFirstStartOpensThePanelWithANotice();
    void thePanelThatOpenedByItselfIsNotPicked();
    void theFirstClickOnTheIconKeepsThePanelOpen();
    void withoutATrayThePanelOffersSettingsAndQuit();
    void thePanelStaysHidden_data();
    void thePanelStaysHidden();
};

namespace {

/// In the accent bar of a notice, from the top left of the panel.
const QPoint inNotice(25, 80);
constexpr QRgb accent = qRgb(97, 102, 224);
/// The gear at the right end of the header.
const QPoint gear(352, 25);

void keepAnyPreference(const PrivateDesktop& desktop)
{
    keepPreferences(desktop, "colorSchemePref=light");
}

} // namespace

void StartTest::theFirstStartOpensThePanelWithANotice()
{
    PrivateDesktop desktop({});
    TintwickProcess program(desktop, {}, QStringList());
    QVERIFY(program.waitForPanel());
    QVERIFY(waitUntil([&] { return desktop.pixel(program.panel().topLeft() + inNotice) == accent; }));
    // The notice is gone with the panel.
    desktop.typeKey(XK_Escape);
    QVERIFY(program.waitForPanelToHide());
    desktop.clickAt(program.trayIcon().center());
    QVERIFY(program.waitForPanel());
    static_cast<void>(desktop.settledScreenshot());
    QVERIFY(desktop.pixel(program.panel().topLeft() + inNotice) != accent);
}

void StartTest::thePanelThatOpenedByItselfIsNotPicked()
{
    PrivateDesktop desktop({});
    const auto picture = desktop.showPicture();
    TintwickProcess program(desktop, {}, QStringList());
    QVERIFY(program.waitForPanel());
    const QPoint covered = program.panel().center();
    desktop.movePointer(covered);
    desktop.typeKey(XK_c, {XK_Alt_L, XK_Shift_L});
    QVERIFY(program.waitForLoupe());
    QVERIFY(program.panel().isEmpty());
    // Windows below the panel paint themselves again.
    QVERIFY(program.waitForCenterCell(patternPixel(covered.x(), covered.y())));
    desktop.click();
    QVERIFY(program.waitForClipboard(hexText(patternPixel(covered.x(), covered.y()))));
}

void StartTest::theFirstClickOnTheIconKeepsThePanelOpen()
{
    PrivateDesktop desktop({});
    TintwickProcess program(desktop, {}, QStringList());
    QVERIFY(program.waitForPanel());
    QVERIFY(program.waitForTrayIcon());
    desktop.clickAt(program.trayIcon().center());
    static_cast<void>(desktop.settledScreenshot());
    QVERIFY(program.waitForPanel());
    desktop.clickAt(program.trayIcon().center());
    QVERIFY(program.waitForPanelToHide());
}

void StartTest::withoutATrayThePanelOffersSettingsAndQuit()
{
    PrivateDesktop desktop({.tray = false});
    keepAnyPreference(desktop);
    TintwickProcess program(desktop, {}, QStringList());
    QVERIFY(program.waitForPanel());
    QVERIFY(program.waitForPanelToHaveFocus());
    desktop.clickAt(program.panel().topLeft() + gear);
    QVERIFY(waitUntil([&] { return !program.menuPlace().isEmpty(); }));
    desktop.typeKey(XK_Down);
    desktop.typeKey(XK_Down);
    desktop.typeKey(XK_Return);
    QCOMPARE(program.process().waitForEnd(), 0);
}

void StartTest::thePanelStaysHidden_data()
{
    QTest::addColumn<bool>("hasTray");
    QTest::addColumn<bool>("isFirst");
    QTest::addColumn<QStringList>("arguments");
    QTest::newRow("a tray is there") << true << false << QStringList();
    QTest::newRow("in the background") << false << true << QStringList{u"--background"_s};
}

void StartTest::thePanelStaysHidden()
{
    QFETCH(const bool, hasTray);
    QFETCH(const bool, isFirst);
    QFETCH(const QStringList, arguments);
    PrivateDesktop desktop({.tray = hasTray});
    if (!isFirst) {
        keepAnyPreference(desktop);
    }
    TintwickProcess program(desktop, {}, arguments);
    // The panel would open after three seconds at the latest.
    QVERIFY(!waitUntil([&] { return !program.panel().isEmpty(); }, std::chrono::seconds(5)));
    QVERIFY(program.process().isRunning());
}

QTEST_GUILESS_MAIN(StartTest)
#include "StartTest.moc"
