#include "desktop/TintwickProcess.h"
#include "support/Pattern.h"
#include "support/TestWindow.h"
#include "support/WaitUntil.h"

#include <QJsonArray>
#include <QTest>

#include <X11/keysym.h>

using namespace tintwick;

/// Many colours in one pick.
class ManyPicksTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void shiftTakesAColorAndThePickGoesOn_data();
    void shiftTakesAColorAndThePickGoesOn();
    void anEndedPickKeepsItsColors_data();
    void anEndedPickKeepsItsColors();
};

namespace {

using namespace Qt::StringLiterals;

/// On pixels with different colours.
const std::vector<QPoint> places{{300, 300}, {411, 322}, {522, 344}};

QByteArray textAt(QPoint place)
{
    return hexText(patternPixel(place.x(), place.y()));
}

qsizetype storedColors(const TintwickProcess& program)
{
    return program.history().size();
}

/// A pick on the picture, which sees every pixel.
struct Scene
{
    PrivateDesktop desktop{{}};
    std::unique_ptr<TestWindow> picture = desktop.showPicture();
    TintwickProcess program{desktop};

    [[nodiscard]] bool pointAt(QPoint place)
    {
        desktop.movePointer(place);
        return program.waitForCenterCell(patternPixel(place.x(), place.y()));
    }
    [[nodiscard]] bool takeAt(QPoint place, bool byKey)
    {
        const qsizetype before = storedColors(program);
        if (!pointAt(place)) {
            return false;
        }
        desktop.pressKey(XK_Shift_L);
        if (byKey) {
            desktop.typeKey(XK_Return);
        } else {
            desktop.click();
        }
        desktop.releaseKey(XK_Shift_L);
        return waitUntil([&] { return storedColors(program) == before + 1; }) && program.loupe();
    }
};

} // namespace

void ManyPicksTest::shiftTakesAColorAndThePickGoesOn_data()
{
    QTest::addColumn<bool>("byKey");
    QTest::newRow("click") << false;
    QTest::newRow("Return") << true;
}

void ManyPicksTest::shiftTakesAColorAndThePickGoesOn()
{
    QFETCH(const bool, byKey);
    Scene scene;
    QVERIFY(scene.program.startPicking());
    QVERIFY(scene.takeAt(places[0], byKey));
    QVERIFY(scene.takeAt(places[1], byKey));
    QVERIFY(scene.program.waitForClipboard(textAt(places[0]) + '\n' + textAt(places[1])));
    QVERIFY(scene.pointAt(places[2]));
    scene.desktop.click();
    QVERIFY(scene.program.waitForPickToEnd());
    QVERIFY(scene.program.waitForClipboard(textAt(places[0]) + '\n' + textAt(places[1]) + '\n' +
                                           textAt(places[2])));
    QVERIFY(waitUntil([&] { return storedColors(scene.program) == 3; }));
}

void ManyPicksTest::anEndedPickKeepsItsColors_data()
{
    QTest::addColumn<bool>("byButton");
    QTest::newRow("Escape") << false;
    QTest::newRow("right click") << true;
}

void ManyPicksTest::anEndedPickKeepsItsColors()
{
    QFETCH(const bool, byButton);
    Scene scene;
    QVERIFY(scene.program.startPicking());
    QVERIFY(scene.takeAt(places[0], false));
    QVERIFY(scene.takeAt(places[1], false));
    if (byButton) {
        scene.desktop.click(PrivateDesktop::Button::Right);
    } else {
        scene.desktop.typeKey(XK_Escape);
    }
    QVERIFY(scene.program.waitForPickToEnd());
    QVERIFY(scene.program.waitForClipboard(textAt(places[0]) + '\n' + textAt(places[1])));
    QCOMPARE(storedColors(scene.program), 2);
}

QTEST_GUILESS_MAIN(ManyPicksTest)
#include "ManyPicksTest.moc"
