#include "desktop/TintwickProcess.h"
#include "support/Pattern.h"
#include "support/TestWindow.h"
#include "support/WaitUntil.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QTest>

#include <X11/keysym.h>

using namespace tintwick;

namespace {

using namespace Qt::StringLiterals;

/// "Red, Sky"
QString names(const TintwickProcess& program)
{
    QStringList texts;
    for (const QJsonValue color : program.history()) {
        texts += color["customName"_L1].toString();
    }
    return texts.join(u", "_s);
}

} // namespace

/// Colours that are pasted, typed or picked again, with the real clipboard and real keys.
class EnteredColorsTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aTextOfAnotherProgramIsPasted();
    void aColorIsTyped();
    void aRepeatedPickMovesItsColor();
};

void EnteredColorsTest::aTextOfAnotherProgramIsPasted()
{
    PrivateDesktop desktop({});
    TintwickProcess program(desktop);
    QVERIFY(program.waitForTrayIcon());
    desktop.takeClipboard("Sky: #38BDF8\nred");
    desktop.clickAt(program.trayIcon().center());
    QVERIFY(program.waitForPanelToHaveFocus());
    desktop.typeKey(XK_v, {XK_Control_L});
    QVERIFY(waitUntil([&] { return names(program) == "Sky, Red"_L1; }));
    desktop.typeKey(XK_z, {XK_Control_L});
    QVERIFY(waitUntil([&] { return names(program).isEmpty(); }));
}

void EnteredColorsTest::aColorIsTyped()
{
    PrivateDesktop desktop({});
    TintwickProcess program(desktop);
    QVERIFY(program.waitForTrayIcon());
    desktop.clickAt(program.trayIcon().center());
    QVERIFY(program.waitForPanelToHaveFocus());
    for (const xcb_keysym_t key : {XK_g, XK_o, XK_l, XK_d, XK_Return}) {
        desktop.typeKey(key);
    }
    QVERIFY(waitUntil([&] { return names(program) == "Gold"_L1; }));
    desktop.typeKey(XK_x);
    desktop.typeKey(XK_Escape);
    desktop.typeKey(XK_Escape);
    QVERIFY(program.waitForPanelToHide());
}

void EnteredColorsTest::aRepeatedPickMovesItsColor()
{
    PrivateDesktop desktop({});
    keepPreferences(desktop, "repeatedPick=move\n");
    const auto picture = desktop.showPicture();
    TintwickProcess program(desktop);
    QVERIFY(program.waitForTrayIcon());
    const auto pickAt = [&](QPoint place) {
        if (!program.startPicking()) {
            return false;
        }
        desktop.movePointer(place);
        if (!program.waitForCenterCell(patternPixel(place.x(), place.y()))) {
            return false;
        }
        desktop.click();
        return program.waitForPickToEnd();
    };
    QVERIFY(pickAt({300, 300}));
    QVERIFY(waitUntil([&] { return program.history().size() == 1; }));
    const QJsonValue first = program.history().first()["id"_L1];
    QVERIFY(pickAt({500, 420}));
    QVERIFY(waitUntil([&] { return program.history().size() == 2; }));
    QVERIFY(pickAt({300, 300}));
    QVERIFY(waitUntil([&] { return program.history().first()["id"_L1] == first; }));
    QCOMPARE(program.history().size(), 2);
}

QTEST_GUILESS_MAIN(EnteredColorsTest)
#include "EnteredColorsTest.moc"
