#include "support/wayland/SwayDesktop.h"
#include "support/Pattern.h"

#include <QTest>

using namespace tintwick;

using Turn = WaylandDesktop::Turn;
using Outputs = std::vector<WaylandDesktop::Output>;

Q_DECLARE_METATYPE(Outputs)

class SwayDesktopTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void thePictureFillsEachPhysicalPixel_data();
    void thePictureFillsEachPhysicalPixel();
    void anOutputThatComesLaterShowsThePicture();
    void anotherProgramReadsTheClipboard();
};

void SwayDesktopTest::thePictureFillsEachPhysicalPixel_data()
{
    QTest::addColumn<Outputs>("outputs");
    QTest::newRow("scale 1") << Outputs{{}};
    QTest::newRow("scale 1.25") << Outputs{{.scale = 1.25}};
    QTest::newRow("scale 1.5") << Outputs{{.size = {1200, 900}, .scale = 1.5}};
    QTest::newRow("scale 1.5, not a whole logical size") << Outputs{{.scale = 1.5}};
    QTest::newRow("scale 1.75") << Outputs{{.size = {1400, 700}, .scale = 1.75}};
    QTest::newRow("scale 2") << Outputs{{.scale = 2}};
    QTest::newRow("a quarter turn") << Outputs{{.turn = Turn::Quarter}};
    QTest::newRow("half a turn, scale 2") << Outputs{{.scale = 2, .turn = Turn::Half}};
    QTest::newRow("three quarter turns, scale 1.5")
        << Outputs{{.size = {1200, 900}, .scale = 1.5, .turn = Turn::ThreeQuarters}};
    QTest::newRow("two outputs") << Outputs{{}, {.size = {1920, 1080}, .scale = 2, .position = {1280, 100}}};
}

void SwayDesktopTest::thePictureFillsEachPhysicalPixel()
{
    QFETCH(const Outputs, outputs);
    SwayDesktop desktop({.outputs = outputs});
    const auto picture = desktop.showPicture();
    for (std::size_t i = 0; i < outputs.size(); ++i) {
        QCOMPARE(desktop.screenshot(i), patternImage({outputs[i].position, desktop.outputSize(i)}));
    }
}

void SwayDesktopTest::anOutputThatComesLaterShowsThePicture()
{
    SwayDesktop desktop({});
    const auto picture = desktop.showPicture();
    desktop.command(QStringLiteral("create_output"));
    QTRY_COMPARE(desktop.outputCount(), 2U);
    QTRY_VERIFY(desktop.showsPictureOnly(1));
    QVERIFY(desktop.showsPictureOnly(0));
}

void SwayDesktopTest::anotherProgramReadsTheClipboard()
{
    SwayDesktop desktop({});
    QCOMPARE(desktop.clipboard(), QByteArray());
    desktop.takeClipboard("precious");
    QCOMPARE(desktop.clipboard(), QByteArray("precious"));
}

QTEST_GUILESS_MAIN(SwayDesktopTest)
#include "SwayDesktopTest.moc"
