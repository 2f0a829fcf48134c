#include "support/wayland/SwayDesktop.h"
#include "support/Pattern.h"

#include <QTest>

using namespace tintwick;

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
    const auto transformed = [](const char* name, wl_output_transform transform, double scale) {
        QTest::newRow(name) << Outputs{{.size = {1200, 900}, .scale = scale, .transform = transform}};
    };
    transformed("90", WL_OUTPUT_TRANSFORM_90, 1);
    transformed("180, scale 2", WL_OUTPUT_TRANSFORM_180, 2);
    transformed("270, scale 1.5", WL_OUTPUT_TRANSFORM_270, 1.5);
    transformed("flipped", WL_OUTPUT_TRANSFORM_FLIPPED, 1);
    transformed("flipped 90", WL_OUTPUT_TRANSFORM_FLIPPED_90, 1);
    transformed("flipped 180", WL_OUTPUT_TRANSFORM_FLIPPED_180, 1);
    transformed("flipped 270", WL_OUTPUT_TRANSFORM_FLIPPED_270, 1);
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
