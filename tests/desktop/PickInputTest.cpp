#include "desktop/TintwickProcess.h"
#include "support/Pattern.h"
#include "support/WaitUntil.h"

#include <QProcess>
#include <QTest>

#include <X11/keysym.h>

using namespace tintwick;

/// Keys and buttons of a pick on layouts and mouse habits of other users.
class PickInputTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theKeyThatTypesEscapeCancels_data();
    void theKeyThatTypesEscapeCancels();
    void theKeysThatTypePlusAndMinusZoom_data();
    void theKeysThatTypePlusAndMinusZoom();
    void superZoomsOnWhicheverModifierItIs();
    void aRightClickCancels();
    void aClickBesideAllMonitorsPicksNothing();
};

namespace {

using namespace Qt::StringLiterals;

const QPoint middle(640, 400);

bool runOn(const PrivateDesktop& desktop, const QString& program, const QStringList& arguments)
{
    QProcess process;
    process.setProcessEnvironment(desktop.environment());
    process.start(program, arguments);
    return process.waitForFinished() && process.exitCode() == 0;
}

bool setKeymap(const PrivateDesktop& desktop, const QString& layout, const QString& option = {})
{
    return runOn(desktop, u"setxkbmap"_s, {u"-layout"_s, layout, u"-option"_s, {}, u"-option"_s, option});
}

/// Whether the loupe's cells beside the middle and at the edge show the picture at this radius.
bool showsRadius(TintwickProcess& program, int radius)
{
    for (const int offset : {-radius, -2, 0, 2, radius}) {
        if (program.cell(offset, 0, radius) != patternPixel(middle.x() + offset, middle.y())) {
            return false;
        }
    }
    return true;
}

} // namespace

void PickInputTest::theKeyThatTypesEscapeCancels_data()
{
    QTest::addColumn<QString>("option");
    QTest::addColumn<QString>("key");
    QTest::newRow("Caps Lock as another Escape") << u"caps:escape"_s << u"66"_s;
    QTest::newRow("Caps Lock and Escape swapped, Caps Lock") << u"caps:swapescape"_s << u"66"_s;
    QTest::newRow("Caps Lock and Escape swapped, Escape") << u"caps:swapescape"_s << u"Caps_Lock"_s;
}

void PickInputTest::theKeyThatTypesEscapeCancels()
{
    QFETCH(const QString, option);
    QFETCH(const QString, key);
    PrivateDesktop desktop({});
    const auto picture = desktop.showPicture();
    QVERIFY(setKeymap(desktop, u"us"_s, option));
    TintwickProcess program(desktop);
    QVERIFY(program.startPicking());
    QVERIFY(runOn(desktop, u"xdotool"_s, {u"key"_s, key}));
    QVERIFY(program.waitForPickToEnd());
    QCOMPARE(desktop.clipboard(), QByteArray());
}

void PickInputTest::theKeysThatTypePlusAndMinusZoom_data()
{
    QTest::addColumn<QString>("layout");
    QTest::addColumn<QString>("plus");
    QTest::addColumn<QString>("minus");
    // X keycodes: evdev codes + 8.
    QTest::newRow("German") << u"de"_s << u"35"_s << u"61"_s;
    QTest::newRow("French") << u"fr"_s << u"21"_s << u"15"_s;
    QTest::newRow("Dvorak") << u"us(dvorak)"_s << u"35"_s << u"48"_s;
}

void PickInputTest::theKeysThatTypePlusAndMinusZoom()
{
    QFETCH(const QString, layout);
    QFETCH(const QString, plus);
    QFETCH(const QString, minus);
    PrivateDesktop desktop({});
    const auto picture = desktop.showPicture();
    QVERIFY(setKeymap(desktop, layout));
    TintwickProcess program(desktop);
    QVERIFY(program.startPicking());
    desktop.movePointer(middle);
    QVERIFY(waitUntil([&] { return showsRadius(program, 7); }));
    desktop.pressKey(XK_Control_L);
    QVERIFY(runOn(desktop, u"xdotool"_s, {u"key"_s, plus}));
    QVERIFY(waitUntil([&] { return showsRadius(program, 6); }));
    QVERIFY(runOn(desktop, u"xdotool"_s, {u"key"_s, minus, minus}));
    QVERIFY(waitUntil([&] { return showsRadius(program, 8); }));
    desktop.releaseKey(XK_Control_L);
}

void PickInputTest::superZoomsOnWhicheverModifierItIs()
{
    PrivateDesktop desktop({});
    const auto picture = desktop.showPicture();
    QVERIFY(setKeymap(desktop, u"us"_s));
    QVERIFY(runOn(desktop, u"xmodmap"_s,
                  {u"-e"_s, u"clear mod4"_s, u"-e"_s, u"clear mod3"_s, u"-e"_s, u"add mod3 = Super_L"_s}));
    TintwickProcess program(desktop);
    QVERIFY(program.startPicking());
    desktop.movePointer(middle);
    QVERIFY(waitUntil([&] { return showsRadius(program, 7); }));
    desktop.typeKey(XK_equal, {XK_Super_L});
    QVERIFY(waitUntil([&] { return showsRadius(program, 6); }));
}

void PickInputTest::aRightClickCancels()
{
    PrivateDesktop desktop({});
    const auto picture = desktop.showPicture();
    TintwickProcess program(desktop);
    desktop.takeClipboard("precious");
    QVERIFY(program.startPicking());
    desktop.movePointer(middle);
    QVERIFY(program.waitForCenterCell(patternPixel(middle.x(), middle.y())));
    desktop.click(PrivateDesktop::Button::Right);
    QVERIFY(program.waitForPickToEnd());
    QVERIFY(waitUntil([&] { return desktop.pointerIsVisible(); }));
    QCOMPARE(desktop.clipboard(), QByteArray("precious"));
    QVERIFY(program.data().isEmpty());
}

void PickInputTest::aClickBesideAllMonitorsPicksNothing()
{
    PrivateDesktop desktop({.size = {1600, 900}});
    const auto picture = desktop.showPicture();
    desktop.setMonitors({{"low", {0, 400, 640, 500}, true}, {"high", {900, 0, 700, 450}}});
    TintwickProcess program(desktop);
    desktop.takeClipboard("precious");
    QVERIFY(program.startPicking());
    desktop.movePointer({300, 600});
    QVERIFY(program.waitForCenterCell(patternPixel(300, 600)));
    desktop.clickAt({760, 200});
    desktop.typeKey(XK_Return);
    // Everything before this move has been handled when the loupe shows it.
    desktop.movePointer({310, 610});
    QVERIFY(program.waitForCenterCell(patternPixel(310, 610)));
    QCOMPARE(desktop.clipboard(), QByteArray("precious"));
    desktop.click();
    QVERIFY(program.waitForPickToEnd());
    QVERIFY(program.waitForClipboard(hexText(patternPixel(310, 610))));
}

QTEST_GUILESS_MAIN(PickInputTest)
#include "PickInputTest.moc"
